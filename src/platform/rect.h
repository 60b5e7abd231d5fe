#pragma once

namespace korvinel::platform {

/// A rectangle of a window's plan, in the plan's own units; a view scales it to the true size.
struct Rect {
  int x, y, width, height;
  constexpr int right() const { return x + width; }
  constexpr int bottom() const { return y + height; }
};

}  // namespace korvinel::platform
