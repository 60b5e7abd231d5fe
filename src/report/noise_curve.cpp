#include "report/noise_curve.h"

#include <cmath>

#include "eeg/bands.h"
#include "report/report_state.h"

namespace korvinel {
namespace {

constexpr int leastExponent = 3;
constexpr int largestExponent = 10;
constexpr int farthest = 3000;  // microvolts

Fixed valueAt(const ReportSpectrum& spectrum, int index) {
  return Fixed::nearest(static_cast<double>(spectrum[index]));
}

void findPeak(const ReportSpectrum& spectrum, NoiseFit& fit) {
  Fixed largest;
  for (int k = eeg::delta.indexes.first; k <= eeg::delta.indexes.last; ++k)
    if (valueAt(spectrum, k) > largest) {
      largest = valueAt(spectrum, k);
      fit.peak = k;
    }
  fit.height = Fixed::fromCount(9 * Fixed::scale / 10) * largest;
}

void findValley(const ReportSpectrum& spectrum, NoiseFit& fit) {
  Fixed smallest = farthest;
  for (int k = fit.peak; k <= eeg::reportedIndexes; ++k)
    if (valueAt(spectrum, k) < smallest) {
      smallest = valueAt(spectrum, k);
      fit.valley = k;
    }
}

/// By repeated multiplication, which gives the same bits on every machine.
double power(double base, int exponent) {
  double result = base;
  for (int factor = 2; factor <= exponent; ++factor) result *= base;
  return result;
}

Fixed curveAt(const NoiseFit& fit, int index, int exponent) {
  const Fixed shape = noiseShape(fit.peak, index);
  if (index < fit.peak) return fit.height * shape;
  return Fixed::nearest(power(shape.toDouble(), exponent) * fit.height.toDouble());
}

void chooseExponent(const ReportSpectrum& spectrum, NoiseFit& fit) {
  // If every curve is too far off, one past the searched range.
  fit.exponent = largestExponent + 1;
  Fixed best = farthest;
  for (int exponent = leastExponent; exponent <= largestExponent; ++exponent) {
    const Fixed error = abs(valueAt(spectrum, fit.valley) - curveAt(fit, fit.valley, exponent));
    if (error > best) continue;
    best = error;
    fit.exponent = exponent;
  }
}

}  // namespace

Fixed noiseShape(int peak, int index) {
  const int distance = peak - index;
  return Fixed::nearest(index / std::sqrt(static_cast<double>(distance * distance + index * index)));
}

NoiseFit fitNoise(const ReportSpectrum& spectrum) {
  NoiseFit fit;
  findPeak(spectrum, fit);
  findValley(spectrum, fit);
  chooseExponent(spectrum, fit);
  for (int k = 1; k <= eeg::reportedIndexes; ++k) fit.curve[k] = curveAt(fit, k, fit.exponent);
  return fit;
}

void ReportState::fitNoiseCurve() {
  for (int channel = 1; channel <= 4; ++channel) noiseCurve[channel] = fitNoise(meanSpectrum[channel]).curve;
}

}  // namespace korvinel
