#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "headless_program.h"
#include "recordings.h"
#include "signals.h"

namespace korvinel {
namespace {

using platform::Colour;

constexpr int fastTone = 40;  // cycles per block; not affected by the baseline

double highestLine(const platform::Surface& surface, Colour colour) {
  double highest = surface.height();
  for (const platform::Mark& mark : surface.marks())
    if (mark.kind == platform::Mark::Kind::line && mark.colour == colour) highest = std::min(highest, mark.y1);
  return highest;
}

/// A program whose instrument sends the same block over and over.
struct LiveTurn : testing::Test {
  template <typename Signal>
  void begin(Signal&& signal) {
    program.host.instrument.idleBlock = instrumentBlock(signal);
    program.startAcquisition();
  }
  void switchRecordingOn() {
    program.window.Registra.press();
    program.host.time.runUntil([&] { return state.recordingArmed == 0; });
  }
  void waitForEnd() {
    program.host.time.runUntil([&] { return state.intervalSelectable == 1; });
    program.host.time.runFor(0.1);
  }
  /// Runs `act` as an event between the analysis and the graphs of a turn. It is triggered by the drawing of the trend,
  /// which comes with the correlation, shortly before.
  void inMidTurn(std::function<void()> act) {
    program.window.Picture6.onChanged = [this, act, given = false]() mutable {
      if (!given) program.host.time.after(0, act);
      given = true;
    };
  }

  HeadlessProgram program;
  MainState& state = program.state;
};

TEST_F(LiveTurn, TheArtefactCheckComesAfterTheSmoothing) {
  // A single sample of 200 exceeds 198, but not after smoothing.
  begin([](int, int s) { return s == 100 ? 200 : 128; });
  state.artefactThreshold = 70;
  bool rejected = false;
  program.host.time.when([&] { return program.window.firstTrace.shows("Artefatto!"); }, [&] { rejected = true; });
  program.acquireBlocks(1);
  EXPECT_FALSE(rejected);
}

TEST_F(LiveTurn, TheArtefactCheckComesBeforeTheBaselineIsRemoved) {
  begin([](int, int) { return 230; });  // the baseline would make this level 128
  state.artefactThreshold = 70;
  program.host.time.runUntil([&] { return program.window.firstTrace.shows("Artefatto!"); }, 10);
  EXPECT_EQ(state.artefactFlag, 1);
}

TEST_F(LiveTurn, TheOcularPassComesAfterTheBaseline) {
  // All samples exceed 198 until the baseline is removed; then none does, and the tone stays.
  program.window.ocularCheck.setChecked(true);
  begin([](int, int s) { return 230 + sineAt(s, fastTone, 20); });
  program.acquireBlocks(1);
  for (int channel = 1; channel <= 4; ++channel)
    EXPECT_EQ(state.shapeSpectrum[channel][fastTone + 1], Fixed(150)) << channel;
}

TEST_F(LiveTurn, TheCorrectedTracesAreThoseOfTheScreenedBlock) {
  // A blink of 8 samples in channel 1: drawn in green as it was, in blue without it.
  program.window.ocularCheck.setChecked(true);
  begin([](int channel, int s) { return channel == 1 && s > 100 && s <= 108 ? 250 : 128 + sineAt(s, fastTone, 9); });
  program.acquireBlocks(1);
  EXPECT_LT(highestLine(program.window.firstTrace, Colour::lightGreen), 255 - 198);
  EXPECT_GE(highestLine(program.window.firstTrace, Colour::blue), 255 - 198);
}

TEST_F(LiveTurn, TheBlockIsRecordedWithoutItsBaseline) {
  begin([](int, int) { return 90; });
  program.acquireBlocks(1);
  switchRecordingOn();
  program.window.Stopd1.press();
  waitForEnd();
  EXPECT_EQ(program.host.files.content[recordings::folder + "prova.QVD"],
            recordings::header() + recordings::block(128));
}

TEST_F(LiveTurn, TheBlockIsRecordedWithoutItsOcularArtefacts) {
  program.window.ocularCheck.setChecked(true);
  begin([](int, int s) { return s % 32 == 0 ? 255 : 128 + sineAt(s, fastTone, 60); });
  switchRecordingOn();
  program.window.Stopd1.press();
  waitForEnd();
  const std::string& file = program.host.files.content[recordings::folder + "prova.QVD"];
  for (int channel = 0; channel < 4; ++channel)
    for (std::size_t s = 0; s < 256; ++s) {
      const auto sample =
          static_cast<unsigned char>(file[recordings::header().size() + 259U * static_cast<std::size_t>(channel) + s]);
      ASSERT_TRUE(sample >= 58 && sample <= 198) << static_cast<int>(sample);
    }
}

TEST_F(LiveTurn, TheSpectraAreThoseOfTheRoundedSamplesThatAreRecorded) {
  begin([](int channel, int s) { return 128 + sineAt(s, 11 * channel, 47, channel); });
  switchRecordingOn();
  program.acquireBlocks(1);
  HeadlessProgram analysis;
  analysis.state.startUp();
  analysis.state.blockCount = 1;
  const std::string recorded = state.temporaryContent.substr(state.temporaryContent.size() - 4 * 259);
  for (int channel = 1; channel <= 4; ++channel)
    fillChannel(analysis.state, channel, [&](int s) {
      return static_cast<unsigned char>(recorded[static_cast<std::size_t>(259 * (channel - 1) + s - 1)]);
    });
  analysis.state.analyseBlockSpectra();
  for (int channel = 1; channel <= 4; ++channel)
    for (int i = 1; i <= 128; ++i)
      ASSERT_EQ(program.shared.spectrumHistory[1][channel][i], analysis.state.amplitudeSpectrum[channel][i]) << i;
}

TEST_F(LiveTurn, TheSpectraAreTakenBeforeTheLowPass) {
  begin([](int, int s) { return 128 + sineAt(s, 100, 60); });  // 50 Hz, which the low-pass removes
  program.acquireBlocks(1);
  EXPECT_EQ(state.shapeSpectrum[1][101], Fixed(150));
  EXPECT_GT(state.mainsDisturbance[1], Fixed(10));
}

TEST_F(LiveTurn, TheCorrelationIsThatOfTheLowPassedSignals) {
  // Two sites share a slow wave; above 39.5 Hz they are opposite, and stronger.
  begin([](int channel, int s) { return 128 + sineAt(s, 20, 20) + (channel % 2 == 0 ? -1 : 1) * sineAt(s, 100, 90); });
  program.acquireBlocks(1);
  EXPECT_GE(program.shared.coherenceHistory[1][1], 97.0F);
  EXPECT_GE(program.shared.coherenceHistory[2][1], 97.0F);
}

TEST_F(LiveTurn, EventsAreProcessedAfterTheAnalysisAndBeforeTheGraphs) {
  begin([](int, int s) { return 128 + sineAt(s, fastTone, 30); });
  bool analysed = false, drawn = true;
  inMidTurn([&] {
    analysed = program.shared.coherenceSpectrumHistory[1][4][fastTone + 1] == 100.0F;
    drawn = program.window.firstNumbers.shows("Valori numerici max") || program.window.timeLabel.text() != "Tempo=";
  });
  program.acquireBlocks(1);
  EXPECT_TRUE(analysed);
  EXPECT_FALSE(drawn);
}

TEST_F(LiveTurn, StopPressedInMidTurnEndsTheAcquisitionWithThatTurn) {
  begin([](int, int s) { return 128 + sineAt(s, fastTone, 30); });
  program.acquireBlocks(2);
  inMidTurn([&] { program.window.Stopd1.press(); });
  waitForEnd();
  EXPECT_EQ(state.blockCount, 3);  // no fourth block is read
  EXPECT_EQ(program.window.blockLabel.text(), "Totale= 9s");
  EXPECT_TRUE(program.window.firstNumbers.shows("Valori numerici max"));
  EXPECT_TRUE(program.host.serialPort.written().ends_with("\xFF\x01"));
}

TEST_F(LiveTurn, StopPressedInMidTurnKeepsTheBlockOfThatTurn) {
  begin([](int, int) { return 128; });
  switchRecordingOn();
  program.acquireBlocks(1);
  inMidTurn([&] { program.window.Stopd1.press(); });
  waitForEnd();
  EXPECT_EQ(program.host.files.content[recordings::folder + "prova.QVD"].size(),
            recordings::header().size() + 3 * 1036);
}

TEST_F(LiveTurn, EndPressedInMidTurnEndsTheProgramWithThatTurn) {
  begin([](int, int s) { return 128 + sineAt(s, fastTone, 30); });
  program.acquireBlocks(2);
  inMidTurn([&] { program.window.Endx1.press(); });
  program.host.time.runFor(10);
  EXPECT_TRUE(program.host.edge.ended());
  EXPECT_EQ(state.blockCount, 3);
  EXPECT_TRUE(program.host.dialogs.shown.empty());
}

TEST_F(LiveTurn, RegistraPressedInMidTurnStartsTheCountAnewWithThatTurn) {
  begin([](int, int) { return 128; });
  program.acquireBlocks(2);
  inMidTurn([&] { program.window.Registra.press(); });
  program.host.time.runUntil([&] { return state.recordingActive == 1; });
  EXPECT_EQ(state.recordingArmed, 0);
  EXPECT_EQ(state.blockCount, 0);
}

}  // namespace
}  // namespace korvinel
