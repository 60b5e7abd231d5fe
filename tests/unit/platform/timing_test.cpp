#include "platform/timing.h"

#include <gtest/gtest.h>

namespace korvinel::platform {
namespace {

TEST(DateText, HasTwoDigitsForDayAndMonthAndFourForTheYear) {
  EXPECT_EQ(dateText({2026, 1, 5, 9, 8, 7}), "05/01/2026");
  EXPECT_EQ(dateText({2026, 11, 21, 0, 0, 0}), "21/11/2026");
  EXPECT_EQ(dateText({987, 12, 31, 0, 0, 0}), "31/12/0987");
}

}  // namespace
}  // namespace korvinel::platform
