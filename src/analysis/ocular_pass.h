#pragma once

#include "values/fixed.h"

namespace korvinel {

constexpr int lowestGoodSample = 58;    ///< below it a sample is replaced
constexpr int highestGoodSample = 198;  ///< above it a sample is replaced

/// Replaces the samples of two channels that leave 58..198 by good signal of the same block. The reserve holds every
/// pair of samples that both lie strictly inside; each channel takes pairs from its beginning in order, by its own
/// count, and a pair taken replaces the samples of both channels. After the reserve is used up, the mid level 128 is
/// taken. A sample at a limit is neither replaced nor put into the reserve. `first`, `second`: samples at indexes
/// 1..256. Returns whether anything was replaced.
bool fillFromReserve(Fixed* first, Fixed* second);

}  // namespace korvinel
