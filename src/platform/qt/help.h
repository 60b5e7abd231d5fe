#pragma once

#include <QWidget>
#include <string_view>

namespace korvinel::platform {

/// What a control does and when it refuses, in Italian, and its Alt letter.
struct Help {
  std::string_view text;
  char letter = '\0';  ///< 'A'..'Z'; none: no letter
};

/// Sets the widget's help: as tool tip, for Shift+F1 and for assistive programs. The letter presses a button, switches
/// a check box, and focuses anything else. Captions do not mark it; the tool tip names it.
void explain(QWidget& widget, const Help& help);

/// A text broken into lines of a readable length.
[[nodiscard]] QString inLines(const QString& text);

}  // namespace korvinel::platform
