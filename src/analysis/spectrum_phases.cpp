#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

#include "analysis/phase.h"
#include "analysis/transform.h"

// Branch-free loops over all indexes for each term of a series, so that a compiler can vectorise them and no term waits
// for the previous one. A phase need not be exact to the last bit of a double here: only its fourth decimal counts, and
// the few phases close to the middle between two decimals are left to phaseAngle.

namespace korvinel {
namespace {

constexpr double shortPi = 3.14159265;
constexpr double quarterPi = 0.7853981633974483;
constexpr double tangentOfEighthPi = 0.41421356237309503;
constexpr double countsPerUnit = 10'000;
constexpr double rounder = 0x1.8p52;     // a sum with it is rounded to a whole number
constexpr double decisiveRest = 0.4999;  // rounding by less than this is certain
constexpr std::size_t size = keptIndexes;

using Numbers = std::array<double, size>;

Numbers countsOf(const Fixed* values) {
  Numbers counts;
  for (std::size_t i = 0; i < size; ++i) counts[i] = static_cast<double>(values[i + 1].count());
  return counts;
}

/// Arc tangents for |x| up to the tangent of pi / 8, off by less than 1e-9.
Numbers arcTangents(const Numbers& x) {
  Numbers square, series{};
  for (std::size_t k = 0; k < size; ++k) square[k] = x[k] * x[k];
  for (int n = 19; n >= 3; n -= 2)
    for (std::size_t k = 0; k < size; ++k) series[k] = square[k] * (1.0 / n - series[k]);
  for (std::size_t k = 0; k < size; ++k) series[k] = x[k] - x[k] * series[k];
  return series;
}

/// See phaseAngle; off by less than 1e-9. Choices are factors of 0 or 1: a compiler may turn them into branches
/// otherwise.
Numbers nearPhases(const Numbers& a, const Numbers& b) {
  constexpr double tiny = 1e-300;  // two parts of 0 give 0
  Numbers quotient, aboveEighth;
  for (std::size_t k = 0; k < size; ++k) {
    // The angle within 0..pi / 4; above pi / 8, its difference from pi / 4.
    const double small = std::min(std::abs(a[k]), std::abs(b[k])), large = std::max(std::abs(a[k]), std::abs(b[k]));
    aboveEighth[k] = small > tangentOfEighthPi * large ? 1.0 : 0.0;
    quotient[k] = (small - aboveEighth[k] * large) / (large + aboveEighth[k] * small + tiny);
  }
  Numbers phase = arcTangents(quotient);
  for (std::size_t k = 0; k < size; ++k) {
    const double octant = phase[k] + aboveEighth[k] * quarterPi;
    const double beyondDiagonal = std::abs(b[k]) > std::abs(a[k]) ? 1.0 : 0.0;
    const double quadrant = octant + beyondDiagonal * (2 * quarterPi - 2 * octant);
    const double beyondAxis = a[k] < 0 ? 1.0 : 0.0;
    phase[k] = (quadrant + beyondAxis * (shortPi - 2 * quadrant)) * (b[k] < 0 ? -1.0 : 1.0);
  }
  return phase;
}

/// Sines for |x| up to pi / 2.
Numbers sines(const Numbers& x) {
  Numbers square, series;
  for (std::size_t k = 0; k < size; ++k) {
    square[k] = x[k] * x[k];
    series[k] = 1.0;
  }
  for (int n = 21; n >= 3; n -= 2)
    for (std::size_t k = 0; k < size; ++k) series[k] = 1.0 - square[k] * (1.0 / (n * (n - 1))) * series[k];
  for (std::size_t k = 0; k < size; ++k) series[k] *= x[k];
  return series;
}

}  // namespace

void phasesOf(const Fixed* re, const Fixed* im, Fixed* phases) {
  const Numbers exact = nearPhases(countsOf(im), countsOf(re));
  Numbers rounded, rests;
  for (std::size_t k = 0; k < size; ++k) {
    const double count = exact[k] * countsPerUnit;
    rounded[k] = (count + rounder) - rounder;
    rests[k] = std::abs(count - rounded[k]);
  }
  for (std::size_t k = 0; k < size; ++k)
    phases[k + 1] = rests[k] < decisiveRest ? Fixed::fromCount(static_cast<std::int64_t>(rounded[k]))
                                            : Fixed::nearest(phaseAngle(im[k + 1].toDouble(), re[k + 1].toDouble()));
}

void phaseCoherences(const Fixed* first, const Fixed* second, float* coherence) {
  // pi in two parts, the first short enough for the difference of a nearby angle from it to be exact.
  constexpr double piHigh = 0x1.921fb544p+1, piLow = 0x1.0b4611a626331p-33;
  const Numbers a = countsOf(first), b = countsOf(second);
  Numbers x;
  for (std::size_t k = 0; k < size; ++k) {
    // cos(x) is sin(|x - pi| - pi / 2).
    const double high = std::abs(a[k] - b[k]) / countsPerUnit - piHigh;
    x[k] = (std::abs(high) - piHigh / 2) - (high < 0 ? -1.0 : 1.0) * piLow - piLow / 2;
  }
  const Numbers sine = sines(x);
  for (std::size_t k = 0; k < size; ++k) coherence[k + 1] = static_cast<float>(sine[k] * 100.0);
}

}  // namespace korvinel
