#pragma once

namespace korvinel::platform {
class Surface;
}

namespace korvinel {

constexpr double spectrumGridStep = 43;  ///< user units between the grid lines of a spectrum panel

/// Draws a grid of blue dots over the surface's content: a vertical line every `stepX` user units, a horizontal one
/// every `stepY`.
void drawGrid(platform::Surface& surface, double stepX, double stepY);

}  // namespace korvinel
