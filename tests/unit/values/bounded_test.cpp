#include "values/bounded.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "values/runtime_error.h"

namespace korvinel {
namespace {

TEST(Bounded, HasBothEndsOfItsIndexRange) {
  Bounded<int, 3> numbers;
  for (int i = 0; i <= 3; ++i) numbers[i] = i * i;
  EXPECT_EQ(numbers[0], 0);
  EXPECT_EQ(numbers[3], 9);
}

TEST(Bounded, AnIndexOutsideIsARuntimeError) {
  Bounded<int, 3> numbers;
  for (const int index : {-1, 4, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
    EXPECT_THROW(numbers[index], RuntimeError) << index;
    EXPECT_THROW(std::as_const(numbers)[index], RuntimeError) << index;
  }
}

TEST(Bounded, ChecksEveryRank) {
  Bounded<float, 2, 4, 130> history;
  history[2][4][130] = 1.5F;
  EXPECT_EQ(history[2][4][130], 1.5F);
  EXPECT_THROW(history[3][0][0], RuntimeError);
  EXPECT_THROW(history[0][5][0], RuntimeError);
  EXPECT_THROW(history[0][0][131], RuntimeError);
}

TEST(Bounded, StartsAtZeroValues) {
  const Bounded<double, 4, 258> samples;
  for (const auto& row : samples)
    for (const double sample : row) EXPECT_EQ(sample, 0);
  const Bounded<std::string, 2> texts;
  EXPECT_EQ(texts[2], "");
}

TEST(Bounded, LiesInOneRowForPlainArithmetic) {
  Bounded<float, 4, 258> samples;
  samples[1][1] = 7;
  EXPECT_EQ(samples[1].data()[1], 7);
  EXPECT_EQ(samples[0].data() + 259, samples[1].data());
}

}  // namespace
}  // namespace korvinel
