#include <gtest/gtest.h>

#include "headless_program.h"
#include "signals.h"

namespace korvinel {
namespace {

using platform::Colour;
using platform::Mark;

std::string alphaBlock() {
  return instrumentBlock([](int channel, int s) { return 128 + sineAt(s, 20, 40, 0.2 * channel); });
}

std::string wildBlock() {
  return instrumentBlock([](int channel, int s) { return 128 + sineAt(s, 3, 120, 0.2 * channel); });
}

/// The longest bar of a panel.
Mark longestBar(const platform::Surface& panel) {
  Mark longest{Mark::Kind::box, Colour::black, 0, 0};
  for (const Mark& mark : panel.marks())
    if (mark.kind == Mark::Kind::box && std::abs(mark.x2 - mark.x1) > std::abs(longest.x2 - longest.x1)) longest = mark;
  return longest;
}

class Analysis : public testing::Test {
 protected:
  void acquire(std::initializer_list<std::string> blocks) {
    program_.host.instrument.blocks.assign(blocks);
    program_.startAcquisition();
  }

  void stop() {
    window_.Stopd1.press();
    program_.host.time.runUntil([&] { return state_.intervalSelectable == 1; });
  }

  /// The number of start commands sent to the instrument.
  int streamRequests() const {
    const std::string& written = program_.host.serialPort.written();
    int count = 0;
    for (std::size_t at = 0; (at = written.find("S\x01", at)) != std::string::npos; ++at) ++count;
    return count;
  }

  void answerThreshold(const std::string& answer) {
    program_.host.dialogs.inputs = {answer};
    window_.Artefact.press();
  }

  HeadlessProgram program_;
  MainState& state_ = program_.state;
  MainWindow& window_ = program_.window;
};

TEST_F(Analysis, OneTurnFillsEveryDisplay) {
  acquire({alphaBlock()});
  program_.acquireBlocks(1);
  EXPECT_EQ(longestBar(window_.leftSpectrum).colour, Colour::lightGreen);
  EXPECT_EQ(longestBar(window_.rightSpectrum).colour, Colour::lightGreen);
  EXPECT_EQ(longestBar(window_.leftSpectrum).y1, 258 - 4 * 21);
  EXPECT_GT(state_.alfaPeak[1], 50.0F);
  EXPECT_FALSE(window_.firstNumbers.texts().empty());
  EXPECT_EQ(linesIn(window_.coherenceGraph, Colour::blue), 64U);
  EXPECT_EQ(linesIn(window_.Picture6, Colour::blue), 12U);
  EXPECT_EQ(window_.zLabel.text(), "     Disturbo a  50Hz\r1=basso  2=basso  3=basso  4=basso  ");
  EXPECT_EQ(window_.timeLabel.text(), "Tempo=3 secondi");
  EXPECT_GT(program_.shared.coherenceHistory[1][1], 90.0F);
  EXPECT_TRUE(program_.host.faults.empty());
}

TEST_F(Analysis, MainsHumOnOneChannelIsHigh) {
  acquire({instrumentBlock([](int channel, int s) { return 128 + (channel == 3 ? sineAt(s, 100, 100) : 0); })});
  program_.acquireBlocks(1);
  EXPECT_EQ(window_.zLabel.text(), "     Disturbo a  50Hz\r1=basso  2=basso  3=alto!  4=basso  ");
}

TEST_F(Analysis, RejectedBlocksAreNotCounted) {
  // Restarting the stream drops the block that has arrived meanwhile.
  const std::string dropped = instrumentBlock([](int, int) { return 128; });
  acquire({alphaBlock(), wildBlock(), dropped, wildBlock(), dropped, alphaBlock(), wildBlock(), dropped, alphaBlock()});
  answerThreshold("70");
  program_.acquireBlocks(3);
  EXPECT_EQ(state_.blockCount, 3);
  EXPECT_EQ(streamRequests(), 4);
  for (int block = 1; block <= 3; ++block) EXPECT_GT(program_.shared.spectrumHistory[block][1][21], 50.0F) << block;
  EXPECT_EQ(program_.shared.spectrumHistory[4][1][21], 0.0F);
  EXPECT_EQ(window_.timeLabel.text(), "Tempo=9 secondi");
}

TEST_F(Analysis, ARejectedBlockShowsTheFirstPairWhateverWasChosen) {
  const auto block = [](double first) {
    return instrumentBlock([=](int channel, int) { return channel == 1 ? first : 128; });
  };
  acquire({block(128), block(230), block(128)});
  answerThreshold("70");
  window_.Canali.press();
  program_.acquireBlocks(1);
  program_.host.time.runUntil([&] { return state_.artefactFlag == 1 && program_.host.tickTimer.enabled(); });
  EXPECT_EQ(state_.channelPair, 2);
  EXPECT_TRUE(window_.firstTrace.shows("Artefatto!"));
  EXPECT_TRUE(hasLine(window_.firstTrace, 1, 25, 2, 25, Colour::blue));  // channel 1 at 230
  EXPECT_EQ(state_.blockCount, 2);
  program_.host.time.runUntil([&] { return program_.host.pauseTimer.enabled(); });
  EXPECT_FALSE(window_.firstTrace.shows("Artefatto!"));
  EXPECT_EQ(state_.blockCount, 2);
}

TEST_F(Analysis, TheToggleStartsAnewWithAStartButThePairStays) {
  acquire({});
  program_.acquireBlocks(1);
  window_.Canali.press();
  EXPECT_EQ(state_.channelPair, 2);
  stop();
  window_.fileNameBox.type("seconda");
  window_.Starts1.press();
  program_.acquireBlocks(1);
  EXPECT_EQ(state_.channelPair, 2);
  window_.Canali.press();
  EXPECT_EQ(state_.channelPair, 2);
  window_.Canali.press();
  EXPECT_EQ(state_.channelPair, 1);
}

TEST_F(Analysis, TheChosenPairIsDrawnFromTheNextBlockOn) {
  const std::string block = instrumentBlock([](int channel, int) { return channel == 4 ? 138 : 128; });
  acquire({block, block});
  program_.acquireBlocks(1);
  window_.Canali.press();
  EXPECT_FALSE(hasLine(window_.secondTrace, 1, 117, 2, 117, Colour::lightGreen));
  EXPECT_TRUE(window_.firstTrace.shows("Cha.1"));
  program_.acquireBlocks(1);
  EXPECT_TRUE(hasLine(window_.secondTrace, 1, 117, 2, 117, Colour::lightGreen));
  EXPECT_TRUE(window_.firstTrace.shows("C3"));
  EXPECT_TRUE(window_.secondTrace.shows("C4"));
  EXPECT_TRUE(window_.rightSpectrum.shows("C4"));
}

TEST_F(Analysis, TheThresholdCanBeAnsweredWhileAcquiring) {
  acquire({});
  program_.acquireBlocks(1);
  const std::pair<const char*, int> cases[] = {{"69", 70},   {"70", 70}, {"128", 128}, {"129", 130},
                                               {"500", 130}, {"", 90},   {"abc", 90},  {"-5", 70}};
  for (const auto& [answer, threshold] : cases) {
    answerThreshold(answer);
    EXPECT_EQ(state_.artefactThreshold, threshold) << answer;
    program_.acquireBlocks(1);
  }
  EXPECT_TRUE(program_.host.faults.empty());
}

TEST_F(Analysis, BlinksAreMendedWhileTheBoxIsTicked) {
  const std::string blink = instrumentBlock([](int channel, int s) {
    const bool closing = channel <= 2 && s % 64 < 12;
    return closing ? 250 : 128 + sineAt(s, 20, 30);
  });
  const auto deltaOf = [&](bool ticked) {
    HeadlessProgram program;
    program.host.instrument.blocks = {blink};
    program.window.ocularCheck.setChecked(ticked);
    program.startAcquisition();
    program.acquireBlocks(1);
    return program.state.deltaPeak[1];
  };
  EXPECT_LT(deltaOf(true), deltaOf(false) / 2);
}

TEST_F(Analysis, AfterStopTheToggleSummarisesTheExamination) {
  acquire({alphaBlock(), alphaBlock(), alphaBlock()});
  program_.acquireBlocks(3);
  stop();
  window_.Canali.press();
  ASSERT_EQ(window_.Picture6.texts().size(), 1U);
  EXPECT_TRUE(window_.Picture6.texts().front().starts_with("Syncro 3-4 media= "));
  window_.Canali.press();
  EXPECT_TRUE(window_.Picture6.texts().front().starts_with("Syncro 1-2 media= "));
  EXPECT_TRUE(program_.host.faults.empty());
}

}  // namespace
}  // namespace korvinel
