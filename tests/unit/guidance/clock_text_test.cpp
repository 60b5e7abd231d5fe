#include "guidance/clock_text.h"

#include <gtest/gtest.h>

namespace korvinel::guidance {
namespace {

TEST(ClockText, MinutesAndTwoDigitsOfSeconds) {
  const std::pair<int, const char*> cases[] = {{0, "0:00"},  {6, "0:06"},   {59, "0:59"},
                                               {60, "1:00"}, {126, "2:06"}, {600, "10:00"}};
  for (const auto& [seconds, text] : cases) EXPECT_EQ(clockText(seconds), text);
}

}  // namespace
}  // namespace korvinel::guidance
