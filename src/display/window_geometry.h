#pragma once

#include "platform/rect.h"

/// The main window's plan, in units of a client area of 1024 x 730; a view scales it to the true size.
namespace korvinel::geometry {

using platform::Rect;

constexpr int width = 1024;
constexpr int height = 730;

// First row: traces, spectra around the frequency axis, coherence, numbers
constexpr Rect firstTrace{10, 10, 340, 240};
constexpr Rect leftSpectrum{366, 10, 160, 240};
constexpr Rect frequencyAxis{528, 10, 32, 240};
constexpr Rect rightSpectrum{562, 10, 160, 240};
constexpr Rect leftRuler{366, 252, 160, 24};
constexpr Rect rightRuler{562, 252, 160, 24};
constexpr Rect coherenceGraph{738, 10, 130, 240};
constexpr Rect firstNumbers{882, 10, 132, 117};
constexpr Rect secondNumbers{882, 133, 132, 117};

// Second row: second trace, message panel, labels and boxes
constexpr Rect secondTrace{10, 284, 340, 240};
constexpr Rect messagePanel{366, 284, 356, 256};
constexpr Rect startPicture{454, 322, 180, 200};
constexpr Rect controlPanel{732, 284, 282, 396};  ///< ground of the labels, boxes and scales
constexpr Rect statusLabel{744, 288, 258, 52};    ///< three lines, so that a reason can be read whole
constexpr Rect noteBox{744, 343, 258, 26};
constexpr Rect fileNameCaption{744, 378, 74, 26};
constexpr Rect fileNameBox{820, 378, 182, 26};
constexpr Rect subjectCaption{744, 409, 74, 26};
constexpr Rect subjectBox{820, 409, 182, 26};
constexpr Rect ocularCheck{744, 440, 258, 24};
constexpr Rect dateLabel{744, 471, 148, 20};
constexpr Rect blockLabel{896, 471, 106, 20};
constexpr Rect timeLabel{744, 493, 148, 20};
constexpr Rect replayPositionLabel{896, 493, 106, 20};
constexpr Rect zLabel{744, 516, 258, 38};
constexpr Rect amplitudeLabel{744, 566, 258, 18};
constexpr Rect amplitudeBar{744, 587, 258, 20};
constexpr Rect speedLabel{744, 619, 258, 18};
constexpr Rect speedBar{744, 640, 258, 20};

// Third row: the time strip, three units per block, and the slider under it
constexpr Rect timeStrip{62, 554, 640, 84};
constexpr Rect slider{62, 658, 640, 22};

// The row of buttons
constexpr Rect buttonRow{10, 688, 1004, 34};

}  // namespace korvinel::geometry
