#pragma once

#include "report/statistics.h"

namespace korvinel {

/// The curve of the undifferentiated background activity: it rises to the peak of the slow waves, then falls with the
/// power of the shape that comes closest to the lowest value of the spectrum.
struct NoiseFit {
  int peak = 1;               ///< index of the largest value in 1..7
  int valley = 1;             ///< index of the smallest value from the peak to 64
  Fixed height;               ///< the curve at its peak, microvolts: nine tenths of the spectrum there
  int exponent = 0;           ///< 3..10; 11 if no curve comes within 3000 microvolts of the valley
  Bounded<Fixed, 130> curve;  ///< [index 1..64], microvolts
};

/// Fits the curve to a mean spectrum in microvolts.
[[nodiscard]] NoiseFit fitNoise(const ReportSpectrum& spectrum);

/// The shape of a curve with its peak at index `peak`: rises to 1 there, then falls towards 0.7071.
[[nodiscard]] Fixed noiseShape(int peak, int index);

}  // namespace korvinel
