#include "analysis/lane_transform.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <random>
#include <vector>

#include "analysis/plain_transform.h"

namespace korvinel {
namespace {

struct Values {
  std::array<Fixed, transformLength + 1> re{}, im{};
  friend bool operator==(const Values&, const Values&) = default;
};

Values plainly(Values values) {
  transformPlainly(values.re.data(), values.im.data());
  return values;
}

std::vector<int> laneCounts() {
  std::vector<int> counts{narrowLanes};
  if (widestLanes() > narrowLanes) counts.push_back(widestLanes());
  return counts;
}

bool isReal(const Values& values) {
  return std::all_of(values.im.begin() + 1, values.im.end(), [](Fixed part) { return part == 0; });
}

void expectSameBits(const Values& values) {
  const Values expected = plainly(values);
  for (const int lanes : laneCounts()) {
    Values found = values;
    ASSERT_TRUE(transformInLanes(found.re.data(), found.im.data(), lanes));
    ASSERT_TRUE(found == expected) << lanes << " lanes";
    if (!isReal(values)) continue;
    found = values;
    for (std::size_t i = 1; i <= transformLength; ++i) found.im[i] = 77;
    if (transformRealInLanes(found.re.data(), found.im.data(), lanes)) {
      ASSERT_TRUE(found == expected) << lanes << " lanes, real";
    }
  }
}

class Source {
 public:
  explicit Source(unsigned seed) : random_(seed) {}
  std::int64_t count(std::int64_t limit) { return std::uniform_int_distribution<std::int64_t>(-limit, limit)(random_); }
  Values real(std::int64_t limit) {
    Values values;
    for (int i = 1; i <= transformLength; ++i) values.re[static_cast<std::size_t>(i)] = Fixed::fromCount(count(limit));
    return values;
  }
  Values complex(std::int64_t limit) {
    Values values = real(limit);
    values.im = real(limit).re;
    return values;
  }

 private:
  std::mt19937_64 random_;
};

constexpr std::int64_t largestInRange = (std::int64_t{1} << 29) - 1;

TEST(LaneTransform, OfRandomRealValuesOfEverySizeIsThePlainOne) {
  Source source(1);
  for (int bits = 0; bits <= 29; ++bits)
    for (int n = 0; n < 60; ++n) expectSameBits(source.real((std::int64_t{1} << bits) - 1));
}

TEST(LaneTransform, OfRandomComplexValuesOfEverySizeIsThePlainOne) {
  Source source(2);
  for (int bits = 0; bits <= 29; ++bits)
    for (int n = 0; n < 60; ++n) expectSameBits(source.complex((std::int64_t{1} << bits) - 1));
}

TEST(LaneTransform, OfExtremeValuesIsThePlainOne) {
  Source source(3);
  for (const std::int64_t limit : {std::int64_t{1} << 22, (std::int64_t{1} << 22) - 1, largestInRange})
    for (int period = 1; period <= 128; period *= 2)
      for (const bool imaginary : {false, true}) {
        Values values;
        for (int i = 1; i <= transformLength; ++i) {
          const Fixed extreme = Fixed::fromCount((i - 1) / period % 2 == 0 ? limit : -limit);
          values.re[static_cast<std::size_t>(i)] = extreme;
          if (imaginary) values.im[static_cast<std::size_t>(i)] = source.count(1) > 0 ? extreme : -extreme;
        }
        expectSameBits(values);
      }
}

TEST(LaneTransform, OfASingleValueAtEveryPlaceIsThePlainOne) {
  for (std::size_t i = 1; i <= transformLength; ++i)
    for (const std::int64_t count : {std::int64_t{1}, std::int64_t{-5'000}, std::int64_t{2'550'000}, largestInRange}) {
      Values values;
      values.re[i] = Fixed::fromCount(count);
      expectSameBits(values);
      values.im[transformLength + 1 - i] = Fixed::fromCount(-count);
      expectSameBits(values);
    }
}

TEST(LaneTransform, OfSampleBytesIsThePlainOne) {
  Source source(4);
  for (int n = 0; n < 2'000; ++n) {
    Values values;
    for (int i = 1; i <= transformLength; ++i)
      values.re[static_cast<std::size_t>(i)] = 128 + static_cast<int>(source.count(n % 127 + 1));
    expectSameBits(values);
  }
}

TEST(LaneTransform, LeavesValuesBeyondItsRangeAlone) {
  for (const std::int64_t count : {largestInRange + 1, -largestInRange - 2, INT64_MAX, INT64_MIN})
    for (const std::size_t place : {std::size_t{1}, std::size_t{256}})
      for (const bool imaginary : {false, true})
        for (const int lanes : laneCounts()) {
          Values values;
          (imaginary ? values.im : values.re)[place] = Fixed::fromCount(count);
          const Values before = values;
          EXPECT_FALSE(transformInLanes(values.re.data(), values.im.data(), lanes));
          EXPECT_TRUE(values == before);
        }
}

TEST(LaneTransform, TouchesIndexes1To256Only) {
  Values values;
  values.re[0] = values.im[0] = 7;
  expectSameBits(values);
}

TEST(LaneTransform, TakesRealValuesWithinItsRange) {
  for (const int lanes : laneCounts())
    for (const std::int64_t count : {(std::int64_t{1} << 22) - 1, std::int64_t{1} << 22}) {
      Values values;
      values.re[100] = Fixed::fromCount(count);
      EXPECT_EQ(transformRealInLanes(values.re.data(), values.im.data(), lanes), count < 1 << 22);
      EXPECT_EQ(values.im[1], Fixed(0));
    }
}

TEST(Transform, OfRealValuesOfAnySizeIsThePlainOne) {
  Source source(6);
  for (const int bits : {20, 22, 25, 29, 40}) {
    const Values values = source.real(std::int64_t{1} << bits);
    Values found = values;
    for (std::size_t i = 1; i <= transformLength; ++i) found.im[i] = 77;
    transformReal(found.re.data(), found.im.data());
    EXPECT_TRUE(found == plainly(values)) << bits;
  }
}

TEST(Transform, OfValuesBeyondTheLanesRangeIsThePlainOne) {
  Source source(5);
  Values values = source.complex(std::int64_t{1} << 45);
  const Values expected = plainly(values);
  transform(values.re.data(), values.im.data());
  EXPECT_TRUE(values == expected);
}

}  // namespace
}  // namespace korvinel
