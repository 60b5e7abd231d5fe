#pragma once

#include "values/fixed.h"

namespace korvinel {

/// The transform on several values at once. All its steps are those of `transformPlainly`, operation by operation, only
/// in another order: the results are the same to the last bit, with any number of lanes.

constexpr int narrowLanes = 2;  ///< what every x86-64 processor has
constexpr int wideLanes = 4;    ///< AVX2

[[nodiscard]] int widestLanes();  ///< of this machine

/// Transforms indexes 1..256 in place. Returns false, with nothing done, where a value lies beyond its range of about
/// +-53,000 (2^29 counts). `lanes`: `narrowLanes`, or `wideLanes` on a machine that has them.
[[nodiscard]] bool transformInLanes(Fixed* re, Fixed* im, int lanes);

/// The same for real values: what `im` holds before does not matter. The range is about +-419 (2^22 counts).
[[nodiscard]] bool transformRealInLanes(Fixed* re, Fixed* im, int lanes);

}  // namespace korvinel
