#include "platform/buffered_line.h"

#include <gtest/gtest.h>

namespace korvinel::platform {
namespace {

/// A line whose system input and clock are set by the test.
class PlayedLine : public BufferedLine {
 public:
  PlayedLine() { setReceiveBuffer(1600); }

  void select(int /*portNumber*/) override {}
  void setSettings(std::string_view /*settings*/) override {}
  void open() override { beginAnew(); }
  void close() override { beginAnew(); }
  [[nodiscard]] bool isOpen() const override { return true; }
  void raiseRts() override {}
  void raiseDtr() override {}
  void write(std::string_view /*bytes*/) override {}

  std::string system;
  double now = 1000;
  int uncountedDrops = 0;
  bool damaged = false;

  /// Looks every 10 ms for this many seconds.
  void lookFor(double duration) {
    for (const double end = now + duration; now < end; now += 0.01) static_cast<void>(waiting());
  }

 private:
  void takeFromSystem() override {
    keep(system);
    system.clear();
    if (damaged) suspect("guasto");
  }
  void dropFromSystem() override {
    ++uncountedDrops;
    system.clear();
  }
  [[nodiscard]] double seconds() const override { return now; }
};

struct BufferedLineTest : testing::Test {
  PlayedLine line;
  BufferedLineTest() { line.open(); }
};

TEST_F(BufferedLineTest, CarriesSingleBytesUntilFramesAreExpected) {
  line.system = "OKx";
  EXPECT_EQ(line.waiting(), 3);
  line.discardInput();
  EXPECT_EQ(line.uncountedDrops, 1);
  EXPECT_EQ(line.waiting(), 0);
}

TEST_F(BufferedLineTest, WhatArrivedBeforeTheFramesIsDropped) {
  line.system = "OK";
  line.expectFrames(4, true);
  line.system = "1234";
  EXPECT_EQ(line.read(), "1234");
}

TEST_F(BufferedLineTest, CountsWhatADiscardDrops) {
  line.expectFrames(4, true);
  line.system = "123412";
  line.discardInput();
  EXPECT_EQ(line.uncountedDrops, 0);
  line.system = "34abcd";
  EXPECT_EQ(line.read(), "abcd");
  EXPECT_EQ(line.alignmentDoubt(), "");
}

TEST_F(BufferedLineTest, CarriesSingleBytesAgainAfterItWasOpenedAnew) {
  line.expectFrames(4, true);
  line.system = "12";
  EXPECT_EQ(line.waiting(), 0);
  line.open();
  line.system = "OK";
  EXPECT_EQ(line.waiting(), 2);
}

TEST_F(BufferedLineTest, MeasuresASilenceFromTheLastByteToTheLastLook) {
  line.lookFor(0.1);
  line.system = "x";
  line.lookFor(0.05);
  EXPECT_NEAR(line.silentFor(), 0.04, 1e-6);
  line.now += 5;  // without a look nothing is known
  EXPECT_NEAR(line.silentFor(), 0.04, 1e-6);
}

TEST_F(BufferedLineTest, ASilenceBetweenFramesIsNoDoubt) {
  line.expectFrames(4, true);
  line.system = "1234";
  line.lookFor(3);
  EXPECT_EQ(line.alignmentDoubt(), "");
  EXPECT_FALSE(line.leftFrameUnfinished());
}

TEST_F(BufferedLineTest, ASilenceInTheMiddleOfAFrameBeginsANewOneAndIsADoubt) {
  line.expectFrames(4, true);
  line.system = "1234ab";
  line.lookFor(LineWatch::silence - 0.02);
  EXPECT_EQ(line.alignmentDoubt(), "");
  line.lookFor(0.05);
  EXPECT_NE(line.alignmentDoubt(), "");
  EXPECT_TRUE(line.leftFrameUnfinished());
  line.system = "5678";
  EXPECT_EQ(line.read(), "12345678");
}

TEST_F(BufferedLineTest, APauseInWhichNobodyLooksIsNoSilence) {
  line.expectFrames(4, true);
  line.system = "1234ab";
  static_cast<void>(line.waiting());
  line.now += 3;
  line.system = "cd1234";
  EXPECT_EQ(line.read(), "1234abcd1234");
  EXPECT_EQ(line.alignmentDoubt(), "");
}

TEST_F(BufferedLineTest, ATurnWithoutALookIsNoDoubtButLongerThanTheSystemCanHoldIs) {
  line.expectFrames(4, true);
  line.system = std::string(1536, 'x');
  line.now += 3.5;
  EXPECT_EQ(line.waiting(), 1536);
  EXPECT_EQ(line.alignmentDoubt(), "");
  line.now += 20;
  static_cast<void>(line.waiting());
  EXPECT_EQ(line.alignmentDoubt(), "la porta non è stata letta per 20 secondi");
}

TEST_F(BufferedLineTest, ASystemThatIsFullIsADoubtHoweverQuicklyThatWent) {
  line.expectFrames(4, true);
  line.system = std::string(LineWatch::fullSystemBuffer - 1, 'x');
  line.now += 1;
  static_cast<void>(line.waiting());
  EXPECT_EQ(line.alignmentDoubt(), "");
  line.system = std::string(LineWatch::fullSystemBuffer, 'x');
  static_cast<void>(line.waiting());
  EXPECT_NE(line.alignmentDoubt(), "");
}

TEST_F(BufferedLineTest, WhatTheSystemKnowsOfIsADoubtUntilTheFramesAreFoundAnew) {
  line.expectFrames(4, true);
  line.damaged = true;
  static_cast<void>(line.waiting());
  line.damaged = false;
  line.lookFor(1);
  EXPECT_EQ(line.alignmentDoubt(), "guasto");
  line.discardInput();
  EXPECT_EQ(line.alignmentDoubt(), "guasto");
  line.expectFrames(4, true);
  EXPECT_EQ(line.alignmentDoubt(), "");
}

TEST_F(BufferedLineTest, ALineThatIsNotSilentIsCountedOnOrBeginsInDoubt) {
  line.expectFrames(4, false);
  EXPECT_NE(line.alignmentDoubt(), "");
  line.expectFrames(4, true);
  EXPECT_EQ(line.alignmentDoubt(), "");
  line.system = "1234ab";
  line.expectFrames(4, false);
  line.system = "cd";
  EXPECT_EQ(line.read(), "1234abcd");
  EXPECT_EQ(line.alignmentDoubt(), "");
}

TEST_F(BufferedLineTest, SingleBytesAreNeverInDoubt) {
  line.now += 100;
  line.damaged = true;
  line.system = std::string(5000, 'x');
  EXPECT_EQ(line.waiting(), 1600);
  EXPECT_EQ(line.alignmentDoubt(), "");
}

}  // namespace
}  // namespace korvinel::platform
