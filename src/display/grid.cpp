#include "display/grid.h"

namespace korvinel {
namespace {

using platform::Colour;
using platform::Surface;

void dottedLineAcross(Surface& surface, double y, double spacing) {
  for (double x = 1; x < surface.width(); x += spacing) surface.point(x, y, Colour::blue);
}

void dottedLineDown(Surface& surface, double x, double spacing) {
  for (double y = 1; y < surface.height(); y += spacing) surface.point(x, y, Colour::blue);
}

}  // namespace

void drawGrid(Surface& surface, double stepX, double stepY) {
  constexpr double spacing = 8;
  surface.clear();
  for (double y = stepY; y < surface.height(); y += stepY) dottedLineAcross(surface, y, spacing);
  for (double x = stepX; x < surface.width(); x += stepX) dottedLineDown(surface, x, spacing);
}

}  // namespace korvinel
