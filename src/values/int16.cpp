#include "values/int16.h"

#include <cmath>

#include "values/runtime_error.h"

namespace korvinel {

Int16 Int16::nearest(double number) {
  const double rounded = std::nearbyint(number);
  if (!(rounded >= minimum && rounded <= maximum)) overflow();
  return Int16(static_cast<int>(rounded));
}

void Int16::overflow() { throw RuntimeError(Cause::tooLargeFor16Bits); }

}  // namespace korvinel
