#pragma once

namespace korvinel {

/// Pearson correlation of two channels in percent, rounded toward minus infinity; 0 if either is flat. Sums,
/// differences and products are 32-bit floats, the final expression is in double. The range is -101..100: the rounding
/// of the sums can take a correlation of -1 just below -100 percent. `x`, `y`: samples at indexes 1..256. A NaN result
/// is a RuntimeError (division by zero).
[[nodiscard]] float correlationPercent(const float* x, const float* y);

}  // namespace korvinel
