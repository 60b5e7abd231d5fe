#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <random>

#include "analysis/phase.h"
#include "analysis/transform.h"

/// The phases of a whole spectrum at once agree with those of each index to the last decimal.
namespace korvinel {
namespace {

using Parts = std::array<Fixed, keptIndexes + 1>;

void expectPhasesOfEachIndex(const Parts& re, const Parts& im) {
  Parts phases{};
  phasesOf(re.data(), im.data(), phases.data());
  for (std::size_t i = 1; i <= keptIndexes; ++i)
    ASSERT_EQ(phases[i].count(), Fixed::nearest(phaseAngle(im[i].toDouble(), re[i].toDouble())).count())
        << re[i].count() << ", " << im[i].count();
}

TEST(PhasesOf, ASpectrumAreThoseOfEachIndex) {
  std::mt19937_64 random(1);
  for (int bits = 0; bits < 63; ++bits)
    for (int n = 0; n < 300; ++n) {
      const std::int64_t limit = (std::int64_t{1} << bits) - 1;
      std::uniform_int_distribution<std::int64_t> counts(-limit, limit);
      Parts re{}, im{};
      for (std::size_t i = 1; i <= keptIndexes; ++i) {
        re[i] = Fixed::fromCount(counts(random));
        im[i] = Fixed::fromCount(n % 3 == 0 ? counts(random) % 100 : counts(random));
      }
      expectPhasesOfEachIndex(re, im);
    }
}

TEST(PhasesOf, AxesAndDiagonalsAreThoseOfEachIndex) {
  const std::int64_t sizes[] = {0, 1, -1, 2, -2, 10'000, -10'000, 3'000'000'000, INT64_MAX, INT64_MIN + 1};
  Parts re{}, im{};
  std::size_t next = 1;
  for (const std::int64_t a : sizes)
    for (const std::int64_t b : sizes) {
      re[next] = Fixed::fromCount(a);
      im[next++] = Fixed::fromCount(b);
    }
  expectPhasesOfEachIndex(re, im);
}

TEST(PhasesOf, NextToTheMiddleBetweenTwoDecimalsAreThoseOfEachIndex) {
  // Parts whose angle is as close to the middle between two decimals as counts of this size allow, on both sides.
  for (int half = 1; half < 31'415; half += 2 * 61)
    for (int place = 0; place < 4; ++place) {
      const double angle = (half + 0.5) * 1e-4;
      Parts re{}, im{};
      for (std::size_t i = 1; i <= keptIndexes; ++i) {
        const double length = 1e9 * std::pow(1.15, static_cast<double>(i)) * (1 + place);
        im[i] = Fixed::fromCount(std::llround(length * std::cos(angle)));
        re[i] = Fixed::fromCount(std::llround(length * std::sin(angle)) + place - 1);
      }
      expectPhasesOfEachIndex(re, im);
    }
}

TEST(PhaseCoherences, OfEveryPossibleDifferenceAreThoseOfEachIndex) {
  for (int start = -62'832; start <= 62'832; start += keptIndexes) {
    Parts first{}, second{};
    std::array<float, keptIndexes + 1> coherence{};
    for (int i = 1; i <= keptIndexes; ++i) {
      const int difference = std::min(start + i - 1, 62'832);
      first[static_cast<std::size_t>(i)] = Fixed::fromCount(difference / 2);
      second[static_cast<std::size_t>(i)] = Fixed::fromCount(difference / 2 - difference);
    }
    phaseCoherences(first.data(), second.data(), coherence.data());
    for (std::size_t i = 1; i <= keptIndexes; ++i)
      ASSERT_EQ(coherence[i], phaseCoherence(first[i], second[i])) << (first[i] - second[i]).count();
  }
}

}  // namespace
}  // namespace korvinel
