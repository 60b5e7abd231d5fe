#pragma once

#include <string>
#include <vector>

#include "platform/rect.h"
#include "platform/surface.h"

namespace korvinel::platform {

/// A page made of surfaces: the background, whose units are the page's, and others at their places on it.
struct Page {
  std::string title;
  const Surface* ground = nullptr;
  int height = 0;  ///< of the page, from the top of the background; the rest is cut off
  struct Placed {
    const Surface* surface;
    Rect place;
  };
  std::vector<Placed> placed;
};

enum class PageFormat { pdf, png, svg };

/// The bytes of a file with the page, painted without a screen by the same code that paints the windows. The first call
/// starts the toolkit; all calls must come from one thread. A RuntimeError (output) if no font is installed.
[[nodiscard]] std::string pageBytes(const Page& page, PageFormat format);

}  // namespace korvinel::platform
