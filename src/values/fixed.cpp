#include "values/fixed.h"

#include <cmath>

#include "values/runtime_error.h"

namespace korvinel {

Fixed Fixed::nearestToLarge(double exact) {
  const double rounded = std::nearbyint(exact);
  constexpr double limit = 9223372036854775808.0;  // 2^63
  if (!(rounded >= -limit && rounded < limit)) overflow();
  return fromCount(static_cast<std::int64_t>(rounded));
}

void Fixed::overflow() { throw RuntimeError(Cause::tooLargeForFixed); }

void Fixed::divisionByZero() { throw RuntimeError(Cause::zeroDivisor); }

double floorToTenth(double number) { return std::floor(number * 10.0) / 10.0; }

}  // namespace korvinel
