#pragma once

#include <QFont>
#include <QPalette>

namespace korvinel::platform {

/// One look on every desktop: calm light colours and one font, whatever the desktop's theme, for the inks of labels and
/// graphs are chosen for them, and the picture of a window goes onto paper. The toolkit's own words are Italian. To be
/// called once, before the first widget.
void applyAppearance();

[[nodiscard]] QPalette calmColours();
[[nodiscard]] QFont calmLetters();

}  // namespace korvinel::platform
