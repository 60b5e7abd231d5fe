#include <gtest/gtest.h>

#include "headless_program.h"
#include "signals.h"

namespace korvinel {
namespace {

using platform::Colour;

class ChannelSelection : public testing::Test {
 protected:
  void SetUp() override { state_.startUp(); }

  void press() { program_.window.Canali.press(); }

  void finishedRecording() {
    state_.intervalSelectable = 1;
    program_.shared.fileBlockCount = 2;
    state_.blockCount = 2;
    program_.shared.coherenceHistory[2][1] = 40;
    program_.shared.coherenceHistory[2][2] = 60;
    program_.shared.spectrumHistory[2][3][20] = 30;
  }

  HeadlessProgram program_;
  MainState& state_ = program_.state;
};

TEST_F(ChannelSelection, StartsWithTheLongLabels) {
  EXPECT_EQ(state_.pairLabel1, "Cha.1");
  EXPECT_EQ(state_.pairLabel2, "Cha.2");
}

TEST_F(ChannelSelection, TheFirstPressSelectsTheSecondPairAndTheNextTheFirst) {
  press();
  EXPECT_EQ(state_.channelPair, 2);
  EXPECT_EQ(state_.pairLabel1, "C3");
  EXPECT_EQ(state_.pairLabel2, "C4");
  press();
  EXPECT_EQ(state_.channelPair, 1);
  EXPECT_EQ(state_.pairLabel1, "C1");
  EXPECT_EQ(state_.pairLabel2, "C2");
}

TEST_F(ChannelSelection, AfterANewStartWithTheSecondPairShownTheFirstPressSelectsItAgain) {
  program_.startAcquisition();
  press();
  ASSERT_EQ(state_.channelPair, 2);
  program_.window.Stopd1.press();
  program_.host.time.runUntil([&] { return state_.intervalSelectable == 1; });
  program_.host.time.runFor(0.1);
  program_.window.Starts1.press();
  ASSERT_EQ(state_.acquisitionRunning, 1);
  EXPECT_EQ(state_.channelPair, 2);
  press();
  EXPECT_EQ(state_.channelPair, 2);
  press();
  EXPECT_EQ(state_.channelPair, 1);
}

TEST_F(ChannelSelection, WithoutARecordingNothingIsRedrawn) {
  const auto before = program_.window.Picture6.marks();
  press();
  EXPECT_EQ(program_.window.Picture6.marks(), before);
  EXPECT_EQ(program_.window.timeLabel.text(), "Tempo=");
}

TEST_F(ChannelSelection, WithARecordingTheSynchronyAndTheSpectraFollow) {
  finishedRecording();
  press();
  EXPECT_TRUE(program_.window.Picture6.shows("Syncro 3-4 media= 50"));
  EXPECT_EQ(program_.window.timeLabel.text(), "Tempo=6 secondi");
  EXPECT_EQ(state_.amplitudeSpectrum[3][20], 30.0F);
}

TEST_F(ChannelSelection, ARecordingWithoutBlocksEndsInAFaultAfterTheSwitch) {
  state_.intervalSelectable = 1;
  press();
  EXPECT_EQ(state_.channelPair, 2);
  EXPECT_EQ(program_.host.faults.size(), 1U);
}

TEST_F(ChannelSelection, TheCounterOverflowsAsAFault) {
  state_.pairToggleCount = 32'767;
  press();
  EXPECT_EQ(program_.host.faults.size(), 1U);
  EXPECT_EQ(state_.channelPair, 1);
}

}  // namespace
}  // namespace korvinel
