#pragma once

#include "platform/surface.h"

namespace korvinel {

constexpr double spectrumGridStep = 43;  ///< user units between the grid lines of a spectrum panel

/// Clears the surface and draws a grid in blue dots: a line down every `stepX` user units, one across every `stepY`.
void drawGrid(platform::Surface& surface, double stepX, double stepY);

}  // namespace korvinel
