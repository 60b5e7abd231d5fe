#pragma once

namespace korvinel {

/// Pearson correlation of two channels in percent, rounded toward minus infinity; 0 when one of them is flat. Sums,
/// differences and products are 32-bit floats, the last expression is in double. The range is -101..100: the rounding
/// of the sums may carry a correlation of -1 just beyond -100. `x`, `y`: samples at indexes 1..256. A result that is no
/// number is a RuntimeError (division by zero).
[[nodiscard]] float correlationPercent(const float* x, const float* y);

}  // namespace korvinel
