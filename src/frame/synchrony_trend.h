#pragma once

#include "values/bounded.h"

namespace korvinel::platform {
class Surface;
}

namespace korvinel {

struct MainState;

/// The synchrony trend on the time strip: 3 units per block, +100 % at the top (y = 0), 0 at mid height, -100 % at y =
/// 200.

void drawTrendScale(platform::Surface& strip);  ///< a mark every minute, dotted guides at +50, 0 and -50 %

/// Blocks 1..`blocks` of one pair's correlation; the line starts from element 0, which is always 0.
void drawTrend(platform::Surface& strip, const Bounded<float, 202>& correlation, int blocks);

void drawNoteMarks(MainState& state);  ///< a short red line at the top for each note

}  // namespace korvinel
