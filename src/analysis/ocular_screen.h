#pragma once

#include "values/fixed.h"

namespace korvinel {

constexpr int lowestGoodSample = 58;    ///< below it a sample is replaced
constexpr int highestGoodSample = 198;  ///< above it a sample is replaced

/// Fills the stretches of two channels that leave 58..198 with good signal of the same block. The reserve is every pair
/// of samples that both lie strictly inside; each channel takes from its beginning in order, by its own count, and a
/// pair taken goes into both channels. Beyond the reserve the mid level 128 is taken. A limit value itself is neither
/// replaced nor gathered. `first`, `second`: samples at indexes 1..256. Returns whether anything was replaced.
bool fillFromReserve(Fixed* first, Fixed* second);

}  // namespace korvinel
