#pragma once

class QWidget;

namespace korvinel::platform {

/// A print of this window shows `part` alone: what stands around it is no part of the examination.
void printOnly(QWidget& window, QWidget& part);

/// What a print of the window shows: the part, or the window; null for null.
[[nodiscard]] QWidget* pageOf(QWidget* window);

/// Hides or shows what only the keyboard's user needs: the focus and suggestions.
void showAidsOfTheKeyboard(const QWidget& window, bool shown);

}  // namespace korvinel::platform
