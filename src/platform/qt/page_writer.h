#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/rect.h"
#include "platform/surface.h"

namespace korvinel::platform {

/// A page made of surfaces: the ground, whose units are the page's, and others at their places on it.
struct Page {
  std::string title;
  const Surface* ground = nullptr;
  struct Placed {
    const Surface* surface;
    Rect place;
  };
  std::vector<Placed> placed;
};

enum class PageFormat { pdf, png, svg };

/// Writes a page as a file, painted by the very code that paints the windows, without a screen. The first call starts
/// the toolkit; the thread must stay the same. A RuntimeError (output) where the file cannot be written or no font is
/// installed.
void writePage(const Page& page, PageFormat format, const std::string& path);

}  // namespace korvinel::platform
