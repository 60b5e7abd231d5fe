#pragma once

#include <QFont>
#include <QPalette>

namespace korvinel::platform {

/// One look on every desktop: calm light colours and one font, whatever the desktop's theme, because the inks of labels
/// and graphs are chosen for them and windows are printed. The toolkit's own texts are Italian. To be called once,
/// before the first widget.
void applyAppearance();

[[nodiscard]] QPalette calmColours();
[[nodiscard]] QFont calmLetters();

}  // namespace korvinel::platform
