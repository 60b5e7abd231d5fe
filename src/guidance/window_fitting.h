#pragma once

#include <optional>
#include <vector>

#include "guidance/settings.h"
#include "platform/rect.h"

namespace korvinel::guidance {

/// Where a window that was at `remembered` is shown on these screens (the area of each that is free of task bars),
/// whole on the one that holds the largest part of it, and never larger than that. None if it would be on no screen.
[[nodiscard]] std::optional<WindowPlace> fittingPlace(const WindowPlace& remembered,
                                                      const std::vector<platform::Rect>& screens);

}  // namespace korvinel::guidance
