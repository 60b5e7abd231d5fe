#include "guidance/window_fitting.h"

#include <algorithm>

namespace korvinel::guidance {
namespace {

// What a window manager usually puts around the client area.
constexpr int frameAcross = 16;
constexpr int frameDown = 38;

int overlap(int begin, int length, int otherBegin, int otherLength) {
  return std::max(0, std::min(begin + length, otherBegin + otherLength) - std::max(begin, otherBegin));
}

int sharedArea(const WindowPlace& place, const platform::Rect& screen) {
  return overlap(place.x, place.width, screen.x, screen.width) *
         overlap(place.y, place.height, screen.y, screen.height);
}

int within(int begin, int length, int first, int room) {
  return std::max(first, std::min(begin, first + room - length));
}

}  // namespace

std::optional<WindowPlace> fittingPlace(const WindowPlace& remembered, const std::vector<platform::Rect>& screens) {
  const auto screen = std::max_element(screens.begin(), screens.end(), [&](const auto& one, const auto& other) {
    return sharedArea(remembered, one) < sharedArea(remembered, other);
  });
  if (screen == screens.end() || sharedArea(remembered, *screen) == 0) return std::nullopt;
  const int roomAcross = screen->width - frameAcross;
  const int roomDown = screen->height - frameDown;
  WindowPlace place = remembered;
  place.width = std::min(place.width, roomAcross);
  place.height = std::min(place.height, roomDown);
  place.x = within(place.x, place.width, screen->x, roomAcross);
  place.y = within(place.y, place.height, screen->y, roomDown);
  return place;
}

}  // namespace korvinel::guidance
