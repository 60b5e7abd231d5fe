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

TEST(ReceiveBuffer, HandsOutWholeFramesAndKeepsTheUnfinishedOne) {
  ReceiveBuffer buffer;
  buffer.expectFrames(4);
  buffer.keep("123");
  EXPECT_EQ(buffer.waiting(), 0);
  EXPECT_EQ(buffer.read(), "");
  buffer.keep("4123412");
  EXPECT_EQ(buffer.waiting(), 8);
  EXPECT_EQ(buffer.read(), "12341234");
  buffer.keep("34");
  EXPECT_EQ(buffer.read(), "1234");
}

TEST(ReceiveBuffer, DiscardsWholeFramesTheOneUnderWayIncluded) {
  ReceiveBuffer buffer;
  buffer.expectFrames(4);
  buffer.keep("1234abc");
  buffer.discard();
  EXPECT_EQ(buffer.waiting(), 0);
  buffer.keep("d5678");
  EXPECT_EQ(buffer.read(), "5678");
  buffer.discard();
  buffer.keep("9012");
  EXPECT_EQ(buffer.read(), "9012");
}

TEST(ReceiveBuffer, OverflowLosesWholeFramesHoweverTheBytesCome) {
  for (const std::size_t chunk : {1U, 3U, 62U, 3000U}) {
    ReceiveBuffer buffer;
    buffer.setCapacity(1600);
    buffer.expectFrames(4);
    std::string stream;
    for (int frame = 0; frame < 750; ++frame) stream += std::string("1234");
    stream += "12";
    for (std::size_t at = 0; at < stream.size(); at += chunk) buffer.keep(std::string_view(stream).substr(at, chunk));
    EXPECT_EQ(buffer.waiting(), 1600) << chunk;
    EXPECT_EQ(buffer.read(), stream.substr(0, 1600)) << chunk;
    buffer.keep("34abcd");
    EXPECT_EQ(buffer.read(), "1234abcd") << chunk;
  }
}

TEST(ReceiveBuffer, ACapacityThatIsNoMultipleOfAFrameHoldsTheWholeFramesInIt) {
  ReceiveBuffer buffer;
  buffer.setCapacity(10);
  buffer.expectFrames(4);
  buffer.keep("123412341234");
  EXPECT_EQ(buffer.read(), "12341234");
}

TEST(ReceiveBuffer, ReadLengthIsRoundedDownToWholeFrames) {
  ReceiveBuffer buffer;
  buffer.expectFrames(4);
  buffer.setReadLength(6);
  buffer.keep("12345678");
  EXPECT_EQ(buffer.read(), "1234");
}

TEST(ReceiveBuffer, AFrameThatWillNotBeFinishedIsForgotten) {
  ReceiveBuffer buffer;
  buffer.expectFrames(4);
  buffer.keep("1234ab");
  EXPECT_TRUE(buffer.hasUnfinishedFrame());
  buffer.dropUnfinished();
  EXPECT_FALSE(buffer.hasUnfinishedFrame());
  buffer.keep("5678");
  EXPECT_EQ(buffer.read(), "12345678");
}

TEST(ReceiveBuffer, CarriesSingleBytesAgainAfterItWasCleared) {
  ReceiveBuffer buffer;
  buffer.expectFrames(4);
  buffer.keep("12");
  buffer.clear();
  buffer.keep("OK!");
  EXPECT_EQ(buffer.read(), "OK!");
}

}  // namespace
}  // namespace korvinel::platform
