#include "analysis/spectrum.h"

#include "analysis/transform.h"
#include "values/real32.h"
#include "values/runtime_error.h"

namespace korvinel {
namespace {

constexpr Fixed amplitudeScale = Fixed::fromCount(200);  // 0.02

inline float meanWith(float mean, float value, double count) {
  const double before = mean;
  return static_cast<float>((static_cast<double>(value) - before) / count + before);
}

}  // namespace

Fixed meanDeviation(const Fixed* samples) {
  Fixed sum;
  for (int i = 1; i <= transformLength; ++i) sum += samples[i];
  const Fixed mean = Fixed::nearest(sum.toDouble() / transformLength);
  Fixed deviation;
  for (int i = 1; i <= transformLength; ++i) deviation += abs(mean - samples[i]);
  return Fixed::nearest(deviation.toDouble() / transformLength);
}

void scaleAmplitudes(Fixed deviation, const Fixed* shape, const float* calibration, float* amplitude) {
  const Fixed scale = deviation * amplitudeScale;
  for (int i = 1; i <= keptIndexes; ++i)
    amplitude[i] = toFloat((scale * shape[i]).toDouble() * static_cast<double>(calibration[i]));
}

float runningMean(float mean, float value, int count) {
  if (count == 0) throw RuntimeError(Cause::zeroDivisor);
  return meanWith(mean, value, count);
}

void renewMeans(float* mean, const float* values, int count) {
  if (count == 0) throw RuntimeError(Cause::zeroDivisor);
  for (int i = 1; i <= keptIndexes; ++i) mean[i] = meanWith(mean[i], values[i], count);
}

Fixed largestAmplitude(const float* spectrum, eeg::IndexRange range) {
  Fixed largest;
  for (int i = range.first; i <= range.last; ++i)
    if (static_cast<double>(spectrum[i]) > largest.toDouble())
      largest = Fixed::nearest(static_cast<double>(spectrum[i]));
  return largest;
}

}  // namespace korvinel
