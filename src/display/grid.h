#pragma once

#include "platform/surface.h"

namespace korvinel {

constexpr double spectrumGridStep = 43;  ///< user units between the grid lines of a spectrum panel

/// Draws a grid in blue dots over what the surface shows: a line down every `stepX` user units, one across every
/// `stepY`.
void drawGrid(platform::Surface& surface, double stepX, double stepY);

}  // namespace korvinel
