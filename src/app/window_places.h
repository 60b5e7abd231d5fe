#pragma once

#include <optional>

#include "guidance/settings.h"

class QWidget;
class QSize;

namespace korvinel {

/// Shows a window where it was last, as far as that is on a screen; else with a client area of this size, or filling a
/// screen that is too small for it.
void showWhereItWas(QWidget& window, const std::optional<guidance::WindowPlace>& remembered, const QSize& client);

[[nodiscard]] guidance::WindowPlace placeOf(const QWidget& window);

}  // namespace korvinel
