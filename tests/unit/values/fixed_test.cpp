#include "values/fixed.h"

#include <gtest/gtest.h>

namespace korvinel {
namespace {

TEST(Fixed, RoundsDoublesToTheNearestTenThousandthTiesToEven) {
  EXPECT_EQ(Fixed::nearest(0.00005).count(), 0);
  EXPECT_EQ(Fixed::nearest(0.00015).count(), 2);
  EXPECT_EQ(Fixed::nearest(-1.25).count(), -12'500);
}

}  // namespace
}  // namespace korvinel
