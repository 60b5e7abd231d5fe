#include "display/grid.h"

#include "platform/surface.h"

namespace korvinel {
namespace {

using platform::Colour;
using platform::Surface;

void dottedLineAcross(Surface& surface, double y, double spacing) {
  for (int i = 0; 1 + i * spacing < surface.width(); ++i) surface.point(1 + i * spacing, y, Colour::blue);
}

void dottedLineDown(Surface& surface, double x, double spacing) {
  for (int i = 0; 1 + i * spacing < surface.height(); ++i) surface.point(x, 1 + i * spacing, Colour::blue);
}

}  // namespace

void drawGrid(Surface& surface, double stepX, double stepY) {
  constexpr double spacing = 8;
  for (int i = 1; i * stepY < surface.height(); ++i) dottedLineAcross(surface, i * stepY, spacing);
  for (int i = 1; i * stepX < surface.width(); ++i) dottedLineDown(surface, i * stepX, spacing);
}

}  // namespace korvinel
