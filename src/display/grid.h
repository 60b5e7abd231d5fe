#pragma once

#include "platform/surface.h"

namespace korvinel {

constexpr double spectrumGridStep = 43;  ///< user units between the grid lines of a spectrum panel

/// Clears the surface and draws a grid in blue dots, with a line every `step` user units either way.
void drawGrid(platform::Surface& surface, double step);

}  // namespace korvinel
