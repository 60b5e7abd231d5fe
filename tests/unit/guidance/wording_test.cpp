#include "guidance/wording.h"

#include <gtest/gtest.h>

namespace korvinel::guidance {
namespace {

TEST(Wording, ABlockIsThreeSeconds) {
  EXPECT_EQ(minutesOf(0), "0:00");
  EXPECT_EQ(minutesOf(3), "0:09");
  EXPECT_EQ(minutesOf(20), "1:00");
  EXPECT_EQ(minutesOf(42), "2:06");
  EXPECT_EQ(minutesOf(199), "9:57");
}

TEST(Wording, OneIsNotMany) {
  EXPECT_EQ(blocks(1), "1 blocco");
  EXPECT_EQ(blocks(41), "41 blocchi");
  EXPECT_EQ(notes(0), "nessuna nota");
  EXPECT_EQ(notes(1), "1 nota");
  EXPECT_EQ(notes(2), "2 note");
}

TEST(Wording, LinesBecomeOne) { EXPECT_EQ(oneLine("a\rb\rc"), "a b c"); }

}  // namespace
}  // namespace korvinel::guidance
