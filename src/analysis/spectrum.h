#pragma once

#include "eeg/spectrum.h"
#include "values/fixed.h"

namespace korvinel {

/// Mean absolute deviation of 256 samples about their mean, both rounded to four decimals. `samples`: indexes 1..256.
[[nodiscard]] Fixed meanDeviation(const Fixed* samples);

/// Calibrated amplitudes in microvolts: the shape (peak 150) times 0.02 of the block's deviation, so that the peak
/// becomes three times the deviation, times the calibration factor of each index. All arrays: indexes 1..128. A
/// RuntimeError (overflow) at the first index whose amplitude exceeds a 32-bit float.
void scaleAmplitudes(Fixed deviation, const Fixed* shape, const float* calibration, float* amplitude);

/// The incremental mean of `count` values, the newest of which is `value`: (value - mean) / count + mean, calculated in
/// double and stored as a 32-bit float. A count of 0 is a RuntimeError (division by zero).
[[nodiscard]] float runningMean(float mean, float value, int count);

/// The same for indexes 1..128 of two arrays: each `mean[i]` with `values[i]` as the newest.
void renewMeans(float* mean, const float* values, int count);

/// The largest amplitude within the range, 0 if none is above 0. `spectrum`: indexed by spectrum index.
[[nodiscard]] Fixed largestAmplitude(const float* spectrum, eeg::IndexRange range);

}  // namespace korvinel
