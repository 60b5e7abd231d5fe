#pragma once

#include <string>

namespace korvinel::guidance {

/// Minutes and seconds of an examination: "0:06", "10:00". `seconds`: 0 or more.
[[nodiscard]] std::string clockText(int seconds);

}  // namespace korvinel::guidance
