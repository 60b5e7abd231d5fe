#include "instrument/number_text.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace korvinel::instrument {
namespace {

TEST(NumberIn, AcceptsTheRangeWithItsEnds) {
  EXPECT_EQ(numberIn("0.5", 0.5, 2, "x"), 0.5);
  EXPECT_EQ(numberIn("2", 0.5, 2, "x"), 2.0);
  EXPECT_EQ(wholeNumberIn("9223372036854775807", 0, INT64_MAX, "x"), INT64_MAX);
}

TEST(NumberIn, RefusesWhatIsNoNumberInRange) {
  for (const auto* text : {"", " 1", "1 ", "1,5", "abc", "nan", "inf", "0.49", "2.01", "-1"})
    EXPECT_THROW((void)numberIn(text, 0.5, 2, "x"), std::invalid_argument) << text;
  for (const auto* text : {"", "1.0", "0", "11", "0x5", "99999999999999999999"})
    EXPECT_THROW((void)wholeNumberIn(text, 1, 10, "x"), std::invalid_argument) << text;
}

TEST(NumberIn, SaysWhatIsAllowed) {
  try {
    (void)wholeNumberIn("12", 1, 10, "the number of the port");
    FAIL();
  } catch (const std::invalid_argument& refusal) {
    EXPECT_STREQ(refusal.what(), "the number of the port must be a whole number from 1 to 10, not '12'");
  }
}

}  // namespace
}  // namespace korvinel::instrument
