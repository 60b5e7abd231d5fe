#pragma once

#include "values/fixed.h"

namespace korvinel {

/// The transform on several values at once. It performs the operations of `transformPlainly` in another order: results
/// are the same to the last bit, with any number of lanes.

constexpr int narrowLanes = 2;  ///< what every x86-64 processor has
constexpr int wideLanes = 4;    ///< AVX2

[[nodiscard]] int widestLanes();  ///< that this machine has

/// Transforms indexes 1..256 in place. Returns false, having done nothing, if a value is outside the range of about
/// +-53,000 (2^29 counts). `lanes`: `narrowLanes`, or `wideLanes` on a machine that has them.
[[nodiscard]] bool transformInLanes(Fixed* re, Fixed* im, int lanes);

/// The same for real values: the former content of `im` does not matter. The range is about +-419 (2^22 counts).
[[nodiscard]] bool transformRealInLanes(Fixed* re, Fixed* im, int lanes);

}  // namespace korvinel
