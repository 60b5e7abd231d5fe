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
constexpr Rect statusLabel{744, 252, 258, 62};    ///< a long text grows upward, onto the ground above the panel
constexpr Rect noteBox{744, 317, 258, 26};
constexpr Rect fileNameCaption{744, 355, 74, 26};
constexpr Rect fileNameBox{820, 355, 182, 26};
constexpr Rect subjectCaption{744, 388, 74, 26};
constexpr Rect subjectBox{820, 388, 182, 26};
constexpr Rect ocularCheck{744, 422, 258, 24};
constexpr Rect dateLabel{744, 456, 148, 20};
constexpr Rect blockLabel{896, 456, 106, 20};
constexpr Rect timeLabel{744, 479, 148, 20};
constexpr Rect replayPositionLabel{896, 479, 106, 20};
constexpr Rect zLabel{744, 504, 258, 38};
constexpr Rect amplitudeLabel{744, 560, 258, 18};
constexpr Rect amplitudeBar{744, 581, 258, 20};
constexpr Rect speedLabel{744, 615, 258, 18};
constexpr Rect speedBar{744, 636, 258, 20};

// Third row: the time strip, three units a block, and the slider under it
constexpr Rect timeStrip{62, 554, 640, 84};
constexpr Rect slider{62, 658, 640, 22};

// The row of buttons
constexpr Rect buttonRow{10, 688, 1004, 34};

}  // namespace korvinel::geometry
