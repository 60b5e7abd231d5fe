#include "platform/receive_buffer.h"

#include <gtest/gtest.h>

namespace korvinel::platform {
namespace {

TEST(ReceiveBuffer, GivesBytesBackInTheOrderOfTheirArrival) {
  ReceiveBuffer buffer;
  buffer.keep("first ");
  buffer.keep(std::string("se\0cond", 7));
  EXPECT_EQ(buffer.waiting(), 13);
  EXPECT_EQ(buffer.read(), std::string("first se\0cond", 13));
  EXPECT_EQ(buffer.waiting(), 0);
  EXPECT_EQ(buffer.read(), "");
}

TEST(ReceiveBuffer, LosesWhatDoesNotFitAndKeepsTheOldest) {
  ReceiveBuffer buffer;
  buffer.setCapacity(5);
  buffer.keep("abc");
  buffer.keep("defg");
  buffer.keep("h");
  EXPECT_EQ(buffer.read(), "abcde");
  buffer.keep("ij");
  EXPECT_EQ(buffer.read(), "ij");
}

TEST(ReceiveBuffer, ReadTakesAtMostTheReadLength) {
  ReceiveBuffer buffer;
  buffer.setReadLength(2);
  buffer.keep("OKAY!");
  EXPECT_EQ(buffer.read(), "OK");
  EXPECT_EQ(buffer.read(), "AY");
  EXPECT_EQ(buffer.read(), "!");
  buffer.keep("OKAY!");
  buffer.setReadLength(0);
  EXPECT_EQ(buffer.read(), "OKAY!");
}

TEST(ReceiveBuffer, ASmallerCapacityDropsNothingThatIsHere) {
  ReceiveBuffer buffer;
  buffer.keep("0123456789");
  buffer.setCapacity(4);
  buffer.keep("x");
  EXPECT_EQ(buffer.waiting(), 10);
  EXPECT_EQ(buffer.read(), "0123456789");
  buffer.keep("abcdef");
  EXPECT_EQ(buffer.read(), "abcd");
}

TEST(ReceiveBuffer, IsEmptyAfterItWasCleared) {
  ReceiveBuffer buffer;
  buffer.setCapacity(3);
  buffer.keep("old");
  buffer.clear();
  EXPECT_EQ(buffer.waiting(), 0);
  buffer.keep("new");
  EXPECT_EQ(buffer.read(), "new");
}

}  // namespace
}  // namespace korvinel::platform
