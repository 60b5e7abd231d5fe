#pragma once

#include <string>

#include "platform/surface.h"

namespace korvinel {

/// Prints in the surface's ink at a point that it also draws.
inline void printOnDot(platform::Surface& surface, double x, double y, platform::Colour dot, const std::string& text) {
  surface.point(x, y, dot);
  surface.print(text);
}

}  // namespace korvinel
