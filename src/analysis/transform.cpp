#include "analysis/transform.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace korvinel {
namespace {

constexpr Fixed peakFloor = Fixed::fromCount(1'000);  // 0.1
constexpr int shapePeak = 150;

using StageTwiddles = std::array<ComplexFactor, transformLength - 1>;

/// The factors of all stages, one after the other: stage s has 2^(s-1), from index 2^(s-1) - 1. Each comes from the one
/// before by a product in double, and so carries the rounding of all the products before it.
constexpr StageTwiddles multiplyOut() {
  StageTwiddles twiddles{};
  std::size_t next = 0;
  for (int stage = 1; stage <= transformStages; ++stage) {
    const ComplexFactor step = stageFactors[static_cast<std::size_t>(stage) - 1];
    ComplexFactor factor{1, 0};
    for (int j = 0; j < 1 << (stage - 1); ++j) {
      twiddles[next++] = factor;
      factor = {factor.re * step.re - factor.im * step.im, factor.re * step.im + factor.im * step.re};
    }
  }
  return twiddles;
}

constexpr StageTwiddles twiddles = multiplyOut();

void reorderByReversedBits(Fixed* re, Fixed* im) {
  int j = 1;
  for (int i = 1; i < transformLength; ++i) {
    if (i < j) {
      std::swap(re[i], re[j]);
      std::swap(im[i], im[j]);
    }
    int k = transformLength / 2;
    for (; k < j; k /= 2) j -= k;
    j += k;
  }
}

void combine(Fixed* re, Fixed* im, int upper, int lower, ComplexFactor factor) {
  const double lowerRe = re[lower].toDouble();
  const double lowerIm = im[lower].toDouble();
  const Fixed turnedRe = Fixed::nearest(lowerRe * factor.re - lowerIm * factor.im);
  const Fixed turnedIm = Fixed::nearest(lowerRe * factor.im + lowerIm * factor.re);
  re[lower] = re[upper] - turnedRe;
  im[lower] = im[upper] - turnedIm;
  re[upper] += turnedRe;
  im[upper] += turnedIm;
}

}  // namespace

void transform(Fixed* re, Fixed* im) {
  reorderByReversedBits(re, im);
  for (int half = 1; half < transformLength; half *= 2)
    for (int j = 1; j <= half; ++j) {
      const ComplexFactor factor = twiddles[static_cast<std::size_t>(half + j) - 2];
      for (int i = j; i <= transformLength; i += 2 * half) combine(re, im, i, i + half, factor);
    }
}

void invertTransform(Fixed* re, Fixed* im) {
  for (int i = 0; i <= transformLength; ++i) im[i] = -im[i];
  transform(re, im);
  for (int i = 0; i <= transformLength; ++i) {
    re[i] = Fixed::nearest(re[i].toDouble() / transformLength);
    im[i] = Fixed::nearest((-im[i]).toDouble() / transformLength);
  }
}

void replaceZeroFrequency(Fixed* re, Fixed* im) {
  re[1] = Fixed::nearest(re[2].toDouble() / 2.0);
  im[1] = Fixed::nearest(im[2].toDouble() / 2.0);
}

void magnitudeShape(const Fixed* re, const Fixed* im, Fixed* shape) {
  Fixed peak = peakFloor;
  for (int i = 1; i <= keptIndexes; ++i) {
    const double imaginary = im[i].toDouble();
    const double real = re[i].toDouble();
    shape[i] = Fixed::nearest(std::sqrt(imaginary * imaginary + real * real));
    peak = std::max(peak, shape[i]);
  }
  for (int i = 1; i <= keptIndexes; ++i) shape[i] = Fixed::nearest(shape[i] * shapePeak / peak);
}

}  // namespace korvinel
