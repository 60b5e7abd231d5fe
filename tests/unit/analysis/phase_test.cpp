#include "analysis/phase.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "signals.h"

namespace korvinel {
namespace {

TEST(PhaseAngle, CoversTheWholeCircle) {
  struct Case {
    double a, b, angle;
  };
  const Case cases[] = {{0, 0, 0},
                        {0, 3, 3.14159265 / 2},
                        {0, -2, -1.570796325},
                        {5, 0, 0},
                        {-1, 0, 3.14159265},
                        {1, 1, std::atan(1.0)},
                        {1, -1, -std::atan(1.0)},
                        {-1, 1, 3.14159265 - std::atan(1.0)},
                        {-1, -1, -(3.14159265 - std::atan(1.0))},
                        {-2, 0.5, 3.14159265 - std::atan(0.25)}};
  for (const auto& [a, b, angle] : cases) EXPECT_DOUBLE_EQ(phaseAngle(a, b), angle) << a << ", " << b;
}

TEST(ArcTangent, AgreesWithTheLibraryToTheLastPlaces) {
  Noise noise(1);
  for (int n = 0; n < 200'000; ++n) {
    const double number = std::exp(30 * noise.next()) * (n % 2 == 0 ? 1 : -1);
    ASSERT_DOUBLE_EQ(arcTangent(number), std::atan(number)) << number;
  }
  EXPECT_EQ(arcTangent(0), 0);
  EXPECT_DOUBLE_EQ(arcTangent(1e300), std::numbers::pi / 2);
}

TEST(Cosine, AgreesWithTheLibraryToTheLastPlaces) {
  Noise noise(3);
  for (int n = 0; n < 200'000; ++n) {
    const double angle = 7 * noise.next();
    ASSERT_NEAR(cosine(angle), std::cos(angle), 5e-16) << angle;
  }
  EXPECT_EQ(cosine(0), 1);
}

TEST(PhaseCoherence, OfEveryPossibleDifferenceIsTheCosineToTheLastBit) {
  // Phases have four decimals and differ by at most 2 pi: these are all the cases.
  for (int count = -62'832; count <= 62'832; ++count) {
    const Fixed difference = Fixed::fromCount(count);
    const auto exact = static_cast<double>(std::cos(static_cast<long double>(difference.toDouble())));
    ASSERT_EQ(phaseCoherence(difference, 0), static_cast<float>(exact * 100.0)) << count;
  }
}

TEST(PhaseCoherence, IsSymmetricAndWithinAHundredPercent) {
  Noise noise(2);
  for (int n = 0; n < 10'000; ++n) {
    const Fixed first = Fixed::nearest(3.1416 * noise.next());
    const Fixed second = Fixed::nearest(3.1416 * noise.next());
    const float coherence = phaseCoherence(first, second);
    ASSERT_EQ(coherence, phaseCoherence(second, first));
    ASSERT_LE(std::abs(coherence), 100.0F);
  }
}

}  // namespace
}  // namespace korvinel
