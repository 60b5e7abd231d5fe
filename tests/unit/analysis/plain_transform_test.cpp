#include "analysis/plain_transform.h"

#include <gtest/gtest.h>

#include <array>

#include "analysis/transform.h"

namespace korvinel {
namespace {

using Parts = std::array<Fixed, transformLength + 1>;

TEST(PlainTransform, OfOneSampleIsFlat) {
  Parts re{}, im{};
  re[1] = Fixed::fromCount(123'456);
  transformPlainly(re.data(), im.data());
  for (std::size_t i = 1; i <= transformLength; ++i) {
    EXPECT_EQ(re[i].count(), 123'456) << i;
    EXPECT_EQ(im[i].count(), 0) << i;
  }
}

TEST(PlainTransform, OfAConstantIsItsSumAtIndexOne) {
  Parts re{}, im{};
  re.fill(Fixed::fromCount(50'000));
  transformPlainly(re.data(), im.data());
  EXPECT_EQ(re[1].count(), 50'000 * std::int64_t{transformLength});
  for (std::size_t i = 2; i <= transformLength; ++i) EXPECT_EQ(re[i].count(), 0) << i;
}

TEST(PlainTransform, OfAlternatingSamplesIsTheirSumInTheMiddle) {
  Parts re{}, im{};
  for (std::size_t i = 1; i <= transformLength; ++i) re[i] = Fixed::fromCount(i % 2 == 1 ? 10'000 : -10'000);
  transformPlainly(re.data(), im.data());
  for (std::size_t i = 1; i <= transformLength; ++i)
    EXPECT_EQ(re[i].count(), i == transformLength / 2 + 1 ? 10'000 * std::int64_t{transformLength} : 0) << i;
}

}  // namespace
}  // namespace korvinel
