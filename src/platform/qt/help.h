#pragma once

#include <QWidget>
#include <string_view>

namespace korvinel::platform {

/// What a control does and when it refuses, in Italian, and the letter that reaches it together with Alt.
struct Help {
  std::string_view text;
  char letter = '\0';  ///< 'A'..'Z'; none: no letter
};

/// Gives the widget its help: as tool tip, for Shift+F1 and for assistive programs. The letter presses a button,
/// switches a check box, and gives anything else the keyboard. A caption shows no mark of it; the tool tip names it.
void explain(QWidget& widget, const Help& help);

/// A text in lines of a readable length.
[[nodiscard]] QString inLines(const QString& text);

}  // namespace korvinel::platform
