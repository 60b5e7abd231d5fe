#pragma once

#include <cmath>
#include <limits>

#include "values/runtime_error.h"

namespace korvinel {

/// The 32-bit float nearest to a double. A RuntimeError (overflow) if its magnitude exceeds the largest float, for
/// which a plain conversion is undefined. NaN and infinities are returned unchanged.
[[nodiscard]] inline float toFloat(double number) {
  constexpr auto largest = static_cast<double>(std::numeric_limits<float>::max());
  if (std::abs(number) > largest && !std::isinf(number)) throw RuntimeError(Cause::tooLargeFor32Bits);
  return static_cast<float>(number);
}

}  // namespace korvinel
