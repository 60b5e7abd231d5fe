#pragma once

#include <cstdint>
#include <string_view>

/// Numbers in option values. All throw std::invalid_argument with a message for the user that names `what` and the
/// allowed range. A decimal point, whatever the locale.
namespace korvinel::instrument {

[[nodiscard]] double numberIn(std::string_view text, double least, double most, std::string_view what);
[[nodiscard]] std::int64_t wholeNumberIn(std::string_view text, std::int64_t least, std::int64_t most,
                                         std::string_view what);

}  // namespace korvinel::instrument
