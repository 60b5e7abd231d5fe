#pragma once

#include <string>
#include <vector>

#include "platform/rect.h"
#include "platform/surface.h"

namespace korvinel::platform {

/// A page made of surfaces: the ground, whose units are the page's, and others at their places on it.
struct Page {
  std::string title;
  const Surface* ground = nullptr;
  int height = 0;  ///< of the page, from the ground's top; the rest of the ground is cut off
  struct Placed {
    const Surface* surface;
    Rect place;
  };
  std::vector<Placed> placed;
};

enum class PageFormat { pdf, png, svg };

/// The bytes of a file that holds the page, painted by the very code that paints the windows, without a screen. The
/// first call starts the toolkit; all calls come from one thread. A RuntimeError (output) where no font is installed.
[[nodiscard]] std::string pageBytes(const Page& page, PageFormat format);

}  // namespace korvinel::platform
