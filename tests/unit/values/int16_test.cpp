#include "values/int16.h"

#include <gtest/gtest.h>

#include <cmath>

#include "values/runtime_error.h"

namespace korvinel {
namespace {

TEST(Int16, HoldsEveryNumberOfSixteenBits) {
  for (int number = -32'768; number <= 32'767; ++number) ASSERT_EQ(static_cast<int>(Int16(number)), number);
}

TEST(Int16, RefusesWhatDoesNotFit) {
  for (const int number : {32'768, -32'769, 1'000'000, -1'000'000}) EXPECT_THROW(Int16{number}, RuntimeError) << number;
  Int16 count = 32'767;
  EXPECT_THROW(count += 1, RuntimeError);
  EXPECT_THROW(++count, RuntimeError);
  EXPECT_EQ(count, 32'767);
  Int16 depth = -32'768;
  EXPECT_THROW(depth -= 1, RuntimeError);
}

TEST(Int16, RoundsToTheNearestTiesToEven) {
  const std::pair<double, int> cases[] = {{0.5, 0},  {1.5, 2},  {2.5, 2},    {-0.5, 0},          {-1.5, -2},
                                          {0.49, 0}, {0.51, 1}, {-2.51, -3}, {32'767.4, 32'767}, {-32'768.5, -32'768}};
  for (const auto& [number, rounded] : cases) EXPECT_EQ(Int16::nearest(number), rounded) << number;
}

TEST(Int16, AgreesWithTheHalfIntegersOfItsWholeRange) {
  for (int number = -32'767; number < 32'767; ++number)
    ASSERT_EQ(Int16::nearest(number + 0.5), number % 2 == 0 ? number : number + 1) << number;
}

TEST(Int16, RoundingOutOfRangeOrOfNoNumberIsARuntimeError) {
  for (const double number : {32'767.5, -32'768.6, 1e30, -1e30, std::nan("")})
    EXPECT_THROW(Int16::nearest(number), RuntimeError) << number;
}

}  // namespace
}  // namespace korvinel
