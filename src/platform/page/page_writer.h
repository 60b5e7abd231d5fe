#pragma once

#include <stdexcept>
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

enum class PageFailure {
  noFont,  ///< none is installed
  notBegun,
  notFinished,
  notEncoded,  ///< as a picture
};

/// A page that cannot be made. what() is the toolkit's own reason, "" if it has none.
struct PageFault : std::runtime_error {
  explicit PageFault(PageFailure what, const std::string& reason = "") : std::runtime_error(reason), failure(what) {}
  PageFailure failure;
};

/// The bytes of a file with the page, painted without a screen by the same code that paints the windows. The first call
/// starts the toolkit; all calls must come from one thread. Throws PageFault.
[[nodiscard]] std::string pageBytes(const Page& page, PageFormat format);

}  // namespace korvinel::platform
