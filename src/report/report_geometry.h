#pragma once

#include <array>

#include "platform/rect.h"

/// The report window's plan, in units of a client area of 1200 x 900; a view scales it to the true size.
namespace korvinel::report_geometry {

using platform::Rect;

constexpr int width = 1200;
constexpr int height = 900;

/// Panels 1..4: spectra of channels 1..4; 5..8: coherence of pairs 1..4.
constexpr std::array<Rect, 8> panels = {{{12, 12, 418, 185},
                                         {448, 12, 418, 185},
                                         {12, 205, 418, 185},
                                         {448, 205, 418, 185},
                                         {12, 398, 418, 185},
                                         {448, 398, 418, 185},
                                         {12, 590, 418, 185},
                                         {448, 590, 418, 185}}};

constexpr Rect buttonFrame{12, 810, 1180, 60};
constexpr Rect checkBoxFrame{882, 626, 303, 140};
constexpr Rect intervalLabel{882, 774, 303, 26};
constexpr Rect statusLabel{12, 874, 1180, 22};

// In the check-box frame
constexpr Rect maximumCheck{894, 634, 279, 28};
constexpr Rect meanCheck{894, 664, 279, 28};
constexpr Rect scaleLabel{894, 700, 279, 24};
constexpr Rect scaleSlider{894, 728, 279, 28};

// In the button frame
constexpr Rect exitButton{22, 820, 224, 40};
constexpr Rect numbersButton{256, 820, 224, 40};
constexpr Rect printButton{490, 820, 224, 40};
constexpr Rect explainButton{724, 820, 224, 40};
constexpr Rect commentButton{958, 820, 224, 40};

// Texts printed on the background
constexpr int textColumn = 880;                      ///< left edge of the header and of the verdicts
constexpr int makerLine = 10;                        ///< y of the maker's name
constexpr int firstLine = 47;                        ///< y of line 1
constexpr int lineDistance = 33;                     ///< from one line to the next
constexpr Rect scaleLine{textColumn, 144, 316, 24};  ///< area of line 4 once the scale has moved
constexpr int frequencyLine = 780;                   ///< y of the frequency labels

}  // namespace korvinel::report_geometry
