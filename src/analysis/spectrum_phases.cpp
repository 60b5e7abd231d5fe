#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

#include "analysis/phase.h"
#include "analysis/transform.h"

// Loops without branches, so that a compiler can take several indexes at once. A phase need not be exact to the last
// bit of a double here: only its fourth decimal counts, and the few that lie next to the middle between two decimals
// are left to phaseAngle.

namespace korvinel {
namespace {

constexpr double shortPi = 3.14159265;
constexpr double quarterPi = 0.7853981633974483;
constexpr double tangentOfEighthPi = 0.41421356237309503;
constexpr double countsPerUnit = 10'000;
constexpr double rounder = 0x1.8p52;       // a sum with it is rounded to a whole number
constexpr double decisiveRest = 0.499999;  // rounding off less than this is beyond doubt
constexpr auto size = static_cast<std::size_t>(keptIndexes);

using Numbers = std::array<double, size>;

Numbers countsOf(const Fixed* values) {
  Numbers counts;
  for (std::size_t i = 0; i < size; ++i) counts[i] = static_cast<double>(values[i + 1].count());
  return counts;
}

/// For |x| up to the tangent of pi / 8: off by less than 2e-12.
inline double arcTangentSeries(double x) {
  const double square = x * x;
  double series = 0;
  for (int n = 25; n >= 3; n -= 2) series = square * (1.0 / n - series);
  return x - x * series;
}

/// See phaseAngle; off by less than 1e-11.
inline double nearPhase(double a, double b) {
  const double sizeA = std::abs(a), sizeB = std::abs(b);
  const double small = sizeA < sizeB ? sizeA : sizeB;
  const double large = sizeA < sizeB ? sizeB : sizeA;
  // The angle within 0..pi / 4, or how far it falls short of pi / 4.
  const bool nearDiagonal = small > tangentOfEighthPi * large;
  const double numerator = nearDiagonal ? small - large : small;
  const double denominator = nearDiagonal ? small + large : large;
  const double eighth =
      arcTangentSeries(numerator / (denominator == 0 ? 1.0 : denominator)) + (nearDiagonal ? quarterPi : 0.0);
  const double quarter = sizeB > sizeA ? 2 * quarterPi - eighth : eighth;
  const double half = a < 0 ? shortPi - quarter : quarter;
  return b < 0 ? -half : half;
}

/// The sine for |x| up to pi / 2.
inline double sineSeries(double x) {
  const double square = x * x;
  double series = 1.0;
  for (int n = 21; n >= 3; n -= 2) series = 1.0 - square * (1.0 / (n * (n - 1))) * series;
  return x * series;
}

}  // namespace

void phasesOf(const Fixed* re, const Fixed* im, Fixed* phases) {
  const Numbers a = countsOf(im), b = countsOf(re);
  Numbers rounded, rests;
  for (std::size_t i = 0; i < size; ++i) {
    const double exact = nearPhase(a[i], b[i]) * countsPerUnit;
    rounded[i] = (exact + rounder) - rounder;
    rests[i] = std::abs(exact - rounded[i]);
  }
  for (std::size_t i = 0; i < size; ++i)
    phases[i + 1] = rests[i] < decisiveRest ? Fixed::fromCount(static_cast<std::int64_t>(rounded[i]))
                                            : Fixed::nearest(phaseAngle(im[i + 1].toDouble(), re[i + 1].toDouble()));
}

void phaseCoherences(const Fixed* first, const Fixed* second, float* coherence) {
  // pi in two parts, the first short enough for what is left of an angle near it to be exact.
  constexpr double piHigh = 0x1.921fb544p+1, piLow = 0x1.0b4611a626331p-33;
  const Numbers a = countsOf(first), b = countsOf(second);
  for (std::size_t i = 0; i < size; ++i) {
    const double angle = std::abs(a[i] - b[i]) / countsPerUnit;
    // cos(x) is sin(|x - pi| - pi / 2).
    const double high = angle - piHigh;
    const double fromPi = high < 0 ? -high : high;
    const double low = high < 0 ? piLow : -piLow;
    coherence[i + 1] = static_cast<float>(sineSeries((fromPi - piHigh / 2) + (low - piLow / 2)) * 100.0);
  }
}

}  // namespace korvinel
