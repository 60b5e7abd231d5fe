#pragma once

#include "report/statistics.h"

namespace korvinel {

/// The curve of the undifferentiated background activity: it rises to the largest of the slow waves and falls from
/// there with the power of the shape that comes closest to the lowest value of the spectrum.
struct NoiseFit {
  int peak = 1;               ///< index of the largest value in 1..7
  int valley = 1;             ///< index of the smallest value from the peak to 64
  Fixed height;               ///< value of the curve at its peak, microvolts: nine tenths of the spectrum's
  int exponent = 0;           ///< 3..10; 11 when no curve comes closer than 3000 microvolts to the valley
  Bounded<Fixed, 130> curve;  ///< [index 1..64], microvolts
};

/// Fits the curve to a mean spectrum in microvolts.
[[nodiscard]] NoiseFit fitNoise(const ReportSpectrum& spectrum);

/// The shape of a curve with its peak at index `peak`: 1 there, rising to it, and falling towards 0.7071 after it.
[[nodiscard]] Fixed noiseShape(int peak, int index);

}  // namespace korvinel
