#include "values/fixed.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "values/runtime_error.h"

namespace korvinel {
namespace {

__extension__ typedef __int128 Wide;

/// The integer nearest to numerator / 10000, ties to even, calculated from the remainder.
Wide nearestQuotient(Wide numerator) {
  const Wide scale = 10'000;
  Wide floor = numerator / scale;
  if (floor * scale > numerator) --floor;
  const Wide twiceRest = 2 * (numerator - floor * scale);
  if (twiceRest > scale || (twiceRest == scale && floor % 2 != 0)) ++floor;
  return floor;
}

TEST(Fixed, RoundsTheDoubleProductTiesToEven) {
  // Sixteenths are exact in binary: 0.03125 x 10000 = 312.5 is a true tie.
  const std::pair<double, std::int64_t> cases[] = {{0.0, 0},       {1.0, 10'000},    {-1.25, -12'500},   {0.03125, 312},
                                                   {0.09375, 938}, {-0.03125, -312}, {-0.09375, -938},   {0.00004, 0},
                                                   {0.00006, 1},   {-0.00006, -1},   {12.34567, 123'457}};
  for (const auto& [number, count] : cases) EXPECT_EQ(Fixed::nearest(number).count(), count) << number;
}

TEST(Fixed, EveryCountUpToAMillionSurvivesTheWayThroughDouble) {
  for (std::int64_t count = -1'000'000; count <= 1'000'000; ++count)
    ASSERT_EQ(Fixed::nearest(Fixed::fromCount(count).toDouble()).count(), count);
}

TEST(Fixed, ConversionAgreesWithLongDoubleAwayFromTies) {
  std::mt19937_64 random(1);
  std::uniform_real_distribution<double> numbers(-1e9, 1e9);
  for (int i = 0; i < 100'000; ++i) {
    const double number = numbers(random);
    const long double exact = static_cast<long double>(number * 10'000.0);
    ASSERT_EQ(Fixed::nearest(number).count(), static_cast<std::int64_t>(std::nearbyintl(exact))) << number;
  }
}

TEST(Fixed, ConversionOfNumbersOfEverySizeIsTheLibrarysRounding) {
  std::mt19937_64 random(4);
  std::uniform_real_distribution<double> numbers(-1, 1);
  for (int exponent = -20; exponent < 49; ++exponent)
    for (int i = 0; i < 2'000; ++i) {
      const double number = std::ldexp(numbers(random), exponent);
      ASSERT_EQ(Fixed::nearest(number).count(), static_cast<std::int64_t>(std::nearbyint(number * 10'000.0))) << number;
    }
}

TEST(Fixed, ProductsAreTheExactQuotientRoundedTiesToEven) {
  std::mt19937_64 random(2);
  std::uniform_int_distribution<std::int64_t> counts(-3'000'000'000LL, 3'000'000'000LL);
  for (int i = 0; i < 200'000; ++i) {
    const std::int64_t a = counts(random);
    const std::int64_t b = counts(random);
    const auto product = (Fixed::fromCount(a) * Fixed::fromCount(b)).count();
    ASSERT_EQ(product, static_cast<std::int64_t>(nearestQuotient(static_cast<Wide>(a) * b))) << a << " " << b;
  }
}

TEST(Fixed, ProductTiesGoToTheEvenCount) {
  const Fixed half = Fixed::nearest(0.5);
  for (std::int64_t count = -2'001; count <= 2'001; ++count) {
    const auto product = (Fixed::fromCount(count) * half).count();
    EXPECT_EQ(product, static_cast<std::int64_t>(nearestQuotient(static_cast<Wide>(count) * 5'000))) << count;
    if (count % 2 != 0) {
      EXPECT_EQ(product % 2, 0) << count;
    }
  }
}

TEST(Fixed, SumsAndDifferencesAreExact) {
  std::mt19937_64 random(3);
  std::uniform_int_distribution<std::int64_t> counts(-4'000'000'000'000'000'000LL, 4'000'000'000'000'000'000LL);
  for (int i = 0; i < 10'000; ++i) {
    const std::int64_t a = counts(random);
    const std::int64_t b = counts(random);
    ASSERT_EQ((Fixed::fromCount(a) + Fixed::fromCount(b)).count(), a + b);
    ASSERT_EQ((Fixed::fromCount(a) - Fixed::fromCount(b)).count(), a - b);
  }
}

TEST(Fixed, QuotientOfAMultipleIsExactlyTheFactor) {
  for (std::int64_t n = 1; n <= 5'000; ++n) EXPECT_EQ(Fixed::fromCount(3 * n) / Fixed::fromCount(n), 3.0);
  EXPECT_LT(Fixed(8) / Fixed(10), static_cast<double>(0.8F));
}

TEST(Fixed, OverflowIsARuntimeError) {
  const Fixed large = Fixed::fromCount(std::numeric_limits<std::int64_t>::max());
  const Fixed small = Fixed::fromCount(std::numeric_limits<std::int64_t>::min());
  EXPECT_THROW(large + Fixed::fromCount(1), RuntimeError);
  EXPECT_THROW(small - Fixed::fromCount(1), RuntimeError);
  EXPECT_THROW(-small, RuntimeError);
  EXPECT_THROW(abs(small), RuntimeError);
  EXPECT_THROW(large * Fixed(2), RuntimeError);
  EXPECT_THROW(Fixed::nearest(9.3e14), RuntimeError);
  EXPECT_THROW(Fixed::nearest(-9.3e14), RuntimeError);
  EXPECT_THROW(Fixed::nearest(std::nan("")), RuntimeError);
  EXPECT_NO_THROW(Fixed::nearest(9.2e14));
}

TEST(Fixed, TheLowestAndTheHighestTimesOneAreStillThemselves) {
  for (const std::int64_t count : {std::numeric_limits<std::int64_t>::min(), std::numeric_limits<std::int64_t>::max()})
    EXPECT_EQ((Fixed::fromCount(count) * Fixed(1)).count(), count);
}

TEST(Fixed, DivisionByZeroIsARuntimeError) {
  try {
    static_cast<void>(Fixed(1) / Fixed(0));
    FAIL();
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.fault, Fault::divisionByZero);
  }
}

TEST(FloorToTenth, TruncatesTowardMinusInfinity) {
  const std::pair<std::int64_t, std::int64_t> cases[] = {
      {123'800, 123'000}, {123'000, 123'000}, {0, 0}, {-500, -1'000}, {-1'000, -1'000}, {-1'001, -2'000}, {999, 0}};
  for (const auto& [count, floored] : cases) EXPECT_EQ(floorToTenth(Fixed::fromCount(count)).count(), floored) << count;
}

TEST(FloorToTenth, OfDoublesMultipliesTheExactValue) {
  EXPECT_EQ(floorToTenth(12.38), 12.3);
  EXPECT_EQ(floorToTenth(-0.05), -0.1);
  EXPECT_EQ(floorToTenth(5.0), 5.0);
  // The 32-bit 0.7 is less than 0.7, so ten times its exact value is less than 7.
  EXPECT_EQ(floorToTenth(static_cast<double>(0.7F)), 0.6);
}

}  // namespace
}  // namespace korvinel
