#include "analysis/phase.h"

#include <array>
#include <cmath>

namespace korvinel {
namespace {

constexpr double pi = 3.14159265;
constexpr double halfCircleTrue = 1.5707963267948966;  // the true pi / 2, for the arc tangent's own arithmetic

/// Arc tangents of 0/8 .. 8/8.
constexpr std::array<double, 9> arcTangentOfEighths = {0.0,
                                                       0.12435499454676144,
                                                       0.24497866312686414,
                                                       0.35877067027057225,
                                                       0.4636476090008061,
                                                       0.5585993153435624,
                                                       0.6435011087932844,
                                                       0.7188299996216245,
                                                       0.7853981633974483};

double signOf(double number) { return number < 0 ? -1.0 : 1.0; }

/// For numbers within 0..1: the nearest eighth, and the series for what remains, at most 1/16.
double arcTangentBelowOne(double number) {
  // NOLINTNEXTLINE(bugprone-incorrect-roundings): halfway between two eighths, either is right
  const int eighths = static_cast<int>(number * 8.0 + 0.5);
  const double near = eighths / 8.0;
  const double rest = (number - near) / (1.0 + number * near);
  const double square = rest * rest;
  double series = 0;
  for (int n = 13; n >= 3; n -= 2) series = square * (1.0 / n - series);
  return arcTangentOfEighths[static_cast<std::size_t>(eighths)] + (rest - rest * series);
}

/// 1 - x^2 / (first (first - 1)) * (1 - x^2 / ((first + 2)(first + 1)) * ...): the series of cosine (first = 2) and,
/// but for the factor x, of sine (first = 3), for |x| up to pi / 4.
double alternatingSeries(double square, int first) {
  double series = 1.0;
  for (int n = first + 16; n >= first; n -= 2) series = 1.0 - square / (n * (n - 1)) * series;
  return series;
}

}  // namespace

double arcTangent(double number) {
  const double magnitude = std::abs(number);
  const double angle =
      magnitude <= 1.0 ? arcTangentBelowOne(magnitude) : halfCircleTrue - arcTangentBelowOne(1.0 / magnitude);
  return angle * signOf(number);
}

double cosine(double angle) {
  // pi / 2 in two parts; the first has few enough bits for its multiples to be exact.
  constexpr double quarterHigh = 0x1.921fb54400000p+0;
  constexpr double quarterLow = 0x1.0b4611a600000p-34;
  const double quarters = std::nearbyint(angle / quarterHigh);
  const double rest = angle - quarters * quarterHigh - quarters * quarterLow;
  switch (static_cast<int>(quarters) & 3) {
    case 0: return alternatingSeries(rest * rest, 2);
    case 1: return -rest * alternatingSeries(rest * rest, 3);
    case 2: return -alternatingSeries(rest * rest, 2);
    default: return rest * alternatingSeries(rest * rest, 3);
  }
}

double phaseAngle(double a, double b) {
  if (b == 0) return a < 0 ? pi : 0.0;
  if (a == 0) return signOf(b) * pi / 2.0;
  if (a > 0) return arcTangent(b / a);
  return (pi - arcTangent(std::abs(b) / std::abs(a))) * signOf(b);
}

float phaseCoherence(Fixed first, Fixed second) {
  return static_cast<float>(cosine((first - second).toDouble()) * 100.0);
}

}  // namespace korvinel
