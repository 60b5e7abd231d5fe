#include <gtest/gtest.h>

#include <cmath>

#include "device/baseline.h"
#include "headless_program.h"
#include "values/runtime_error.h"

namespace korvinel {
namespace {

using platform::Colour;
using platform::Mark;

void fill(MainState& state, float value) {
  for (int c = 1; c <= 4; ++c)
    for (int s = 1; s <= 256; ++s) state.sampleBlock[c][s] = value;
}

std::size_t linesIn(const platform::Surface& surface, Colour colour) {
  std::size_t count = 0;
  for (const Mark& mark : surface.marks()) count += mark.kind == Mark::Kind::line && mark.colour == colour ? 1 : 0;
  return count;
}

std::string frames(int first, int second, int third, int fourth) {
  std::string block;
  for (int s = 0; s < 256; ++s)
    for (const int value : {first, second, third, fourth}) block += static_cast<char>(value);
  return block;
}

TEST(SmoothBlock, AConstantSignalIsUnchanged) {
  HeadlessProgram program;
  for (const float level : {0.0F, 1.0F, 128.0F, 255.0F}) {
    fill(program.state, level);
    program.state.smoothBlock();
    for (int s = 0; s <= 257; ++s) ASSERT_NEAR(program.state.sampleBlock[2][s], level, 1e-4) << s;
  }
}

TEST(SmoothBlock, TheLeftNeighbourIsAlreadySmoothed) {
  HeadlessProgram program;
  fill(program.state, 0);
  program.state.sampleBlock[1][100] = 160;
  program.state.smoothBlock();
  const auto& s = program.state.sampleBlock[1];
  EXPECT_EQ(s[98], static_cast<float>(0.0));
  EXPECT_EQ(s[99], static_cast<float>(0.3 * 160 / 1.6));
  EXPECT_EQ(s[100], static_cast<float>((160 + 0.3 * 30) / 1.6));
  EXPECT_EQ(s[101], static_cast<float>(0.3 * static_cast<double>(s[100]) / 1.6));
  EXPECT_EQ(s[102], static_cast<float>(0.3 * static_cast<double>(s[101]) / 1.6));
}

TEST(SmoothBlock, TheEdgeCopiesAreTheRawFirstAndLastSample) {
  HeadlessProgram program;
  fill(program.state, 100);
  program.state.sampleBlock[3][1] = 180;
  program.state.sampleBlock[3][256] = 20;
  program.state.smoothBlock();
  EXPECT_EQ(program.state.sampleBlock[3][0], 180.0F);
  EXPECT_EQ(program.state.sampleBlock[3][257], 20.0F);
}

TEST(SmoothBlock, ASampleIsRoundedToAFloatOnlyOnce) {
  HeadlessProgram program;
  for (int s = 1; s <= 256; ++s) program.state.sampleBlock[1][s] = static_cast<float>((s * 89) % 256);
  auto expected = program.state.sampleBlock[1];
  expected[0] = expected[1];
  expected[257] = expected[256];
  for (int s = 1; s <= 256; ++s) {
    const double left = expected[s - 1], own = expected[s], right = expected[s + 1];
    expected[s] = static_cast<float>((own + 0.3 * left + 0.3 * right) / 1.6);
  }
  program.state.smoothBlock();
  for (int s = 1; s <= 256; ++s) ASSERT_EQ(program.state.sampleBlock[1][s], expected[s]) << s;
}

TEST(RemoveBaseline, TheRowOfNoChannelStaysEmpty) {
  HeadlessProgram program;
  fill(program.state, 90);
  program.state.removeBaseline();
  for (int s = 0; s <= 257; ++s) ASSERT_EQ(program.state.sampleBlock[0][s], 0.0F) << s;
}

TEST(RemoveBaseline, AConstantBlockStaysAtTheMidLevel) {
  HeadlessProgram program;
  fill(program.state, 128);
  program.state.smoothBlock();
  program.state.removeBaseline();
  for (int c = 1; c <= 4; ++c)
    for (int s = 1; s <= 256; ++s) ASSERT_EQ(program.state.sampleBlock[c][s], 128.0F);
}

TEST(RemoveBaseline, TakesAConstantOffsetAway) {
  HeadlessProgram program;
  fill(program.state, 40);
  program.state.removeBaseline();
  for (int s = 1; s <= 256; ++s) ASSERT_EQ(program.state.sampleBlock[4][s], 128.0F);
}

TEST(RemoveBaseline, ARampComesOutCloseToTheMidLevelInTheMiddle) {
  HeadlessProgram program;
  fill(program.state, 128);
  for (int s = 1; s <= 256; ++s) program.state.sampleBlock[2][s] = static_cast<float>(s) / 2;
  program.state.removeBaseline();
  for (int s = 96; s <= 160; ++s) ASSERT_NEAR(program.state.sampleBlock[2][s], 128, 0.5) << s;
}

TEST(RemoveBaseline, KeepsAFastWave) {
  HeadlessProgram program;
  fill(program.state, 128);
  for (int s = 1; s <= 256; ++s) program.state.sampleBlock[1][s] = static_cast<float>(128 + 30 * std::sin(s * 0.5));
  const auto before = program.state.sampleBlock;
  program.state.removeBaseline();
  for (int s = 64; s <= 192; ++s) ASSERT_NEAR(program.state.sampleBlock[1][s], before[1][s], 1.5) << s;
}

TEST(RemoveBaseline, LeavesTheEdgeColumnsAlone) {
  HeadlessProgram program;
  fill(program.state, 90);
  program.state.sampleBlock[1][0] = 7;
  program.state.sampleBlock[1][257] = 9;
  program.state.removeBaseline();
  EXPECT_EQ(program.state.sampleBlock[1][0], 7.0F);
  EXPECT_EQ(program.state.sampleBlock[1][257], 9.0F);
}

TEST(SmoothToBaseline, IsFourHundredPassesOfTheMeanOfThree) {
  // Three samples, few enough to calculate by hand: in doubles, stored as floats.
  float signal[5] = {0, 10, 40, 100, 0};
  float expected[5] = {10, 10, 40, 100, 100};
  for (int pass = 0; pass < 400; ++pass) {
    for (int s = 1; s <= 3; ++s)
      expected[s] = static_cast<float>((static_cast<double>(expected[s - 1]) + static_cast<double>(expected[s]) +
                                        static_cast<double>(expected[s + 1])) /
                                       3);
    expected[0] = expected[1];
    expected[4] = expected[3];
  }
  smoothToBaseline(signal, 3);
  for (int s = 0; s <= 4; ++s) EXPECT_EQ(signal[s], expected[s]) << s;
}

TEST(DrawTraces, LinkNeighbouringSamplesUpsideDown) {
  HeadlessProgram program;
  fill(program.state, 100);
  program.state.sampleBlock[1][2] = 101.5F;
  program.state.drawRawTraces();
  const auto& marks = program.window.firstTrace.marks();
  ASSERT_EQ(marks.size(), 255U);
  // 255 - 101.5 = 153.5 rounds to the even 154.
  EXPECT_EQ(marks[0], (Mark{Mark::Kind::line, Colour::lightGreen, 1, 155, 2, 154}));
  EXPECT_EQ(marks[1], (Mark{Mark::Kind::line, Colour::lightGreen, 2, 154, 3, 155}));
  EXPECT_EQ(marks.back().x2, 256);
}

TEST(DrawTraces, ShowTheChosenPair) {
  for (const int pair : {1, 2}) {
    HeadlessProgram program;
    for (int c = 1; c <= 4; ++c)
      for (int s = 1; s <= 256; ++s) program.state.sampleBlock[c][s] = static_cast<float>(10 * c);
    program.state.channelPair = pair;
    program.state.drawRawTraces();
    EXPECT_EQ(program.window.firstTrace.marks()[0].y1, 255 - 10 * (2 * pair - 1));
    EXPECT_EQ(program.window.secondTrace.marks()[0].y1, 255 - 10 * (2 * pair));
  }
}

TEST(DrawTraces, RawTracesAreDrawnOnClearedGraphs) {
  HeadlessProgram program;
  fill(program.state, 100);
  for (int block = 1; block <= 2; ++block) program.state.drawRawTraces();
  for (const platform::Surface* trace : {&program.window.firstTrace, &program.window.secondTrace})
    EXPECT_EQ(trace->marks().size(), 255U);
}

TEST(DrawTraces, CorrectedTracesGoOverTheRawOnes) {
  HeadlessProgram program;
  fill(program.state, 100);
  program.state.drawRawTraces();
  program.state.drawCorrectedTraces();
  for (const platform::Surface* trace : {&program.window.firstTrace, &program.window.secondTrace}) {
    EXPECT_EQ(linesIn(*trace, Colour::lightGreen), 255U);
    EXPECT_EQ(linesIn(*trace, Colour::blue), 255U);
  }
}

TEST(DrawTraces, TheRawOnesSayWhetherTheBlockIsAnArtefact) {
  HeadlessProgram program;
  fill(program.state, 100);
  program.state.artefactFlag = 1;
  program.state.drawRawTraces();
  const Mark& word = program.window.firstTrace.marks().back();
  EXPECT_EQ(word.text, "Artefatto!");
  EXPECT_EQ(std::pair(word.x1, word.y1), std::pair(1.0, 1.0));
  EXPECT_EQ(word.colour, Colour::white);
  EXPECT_FALSE(program.window.secondTrace.shows("Artefatto!"));
  program.state.artefactFlag = 0;
  program.state.drawRawTraces();
  EXPECT_FALSE(program.window.firstTrace.shows("Artefatto!"));
  program.state.artefactFlag = 1;
  program.shared.languageFlag = "Eng";
  program.state.drawRawTraces();
  EXPECT_FALSE(program.window.firstTrace.shows("Artefatto!"));
}

TEST(DrawTraces, TheNamesOfThePairStandInWhiteAtTheLowerLeft) {
  HeadlessProgram program;
  program.state.startUp();
  program.state.nameTraces();
  const std::pair<const platform::Surface*, const char*> names[] = {{&program.window.firstTrace, "Cha.1"},
                                                                    {&program.window.secondTrace, "Cha.2"}};
  for (const auto& [trace, name] : names) {
    const Mark& mark = trace->marks().back();
    EXPECT_EQ(mark.text, name);
    EXPECT_EQ(std::pair(mark.x1, mark.y1), std::pair(4.0, 226.0)) << name;
    EXPECT_EQ(mark.colour, Colour::white) << name;
  }
}

TEST(AcquisitionTick, TheTracesOfABlockCarryTheNamesOfTheirChannels) {
  HeadlessProgram program;
  program.startAcquisition();
  program.window.Canali.press();
  program.acquireBlocks(1);
  EXPECT_TRUE(program.window.firstTrace.shows("C3"));
  EXPECT_TRUE(program.window.secondTrace.shows("C4"));
}

TEST(AcquisitionTick, TheNamesStandOverTheCorrectedTraces) {
  HeadlessProgram program;
  program.startAcquisition();
  program.acquireBlocks(1);
  EXPECT_EQ(program.window.firstTrace.marks().back().text, "Cha.1");
  EXPECT_EQ(program.window.secondTrace.marks().back().text, "Cha.2");
}

TEST(AcquisitionTick, EndPressedWhileARejectedBlockIsReadEndsWithThatTurn) {
  HeadlessProgram program;
  program.host.instrument.idleBlock = frames(128, 250, 128, 128);
  program.startAcquisition();
  program.state.artefactThreshold = 70;
  program.host.time.when([&] { return program.state.turnRunning == 1; }, [&] { program.window.Endx1.press(); });
  program.host.time.runFor(2.5);
  EXPECT_TRUE(program.host.edge.ended());
}

TEST(AcquisitionTick, TheFirstBlockIsReadOneTickAfterStart) {
  HeadlessProgram program;
  program.startAcquisition();
  const double start = program.host.time.seconds();
  program.host.time.runUntil([&] { return program.state.blockCount == 1; });
  EXPECT_NEAR(program.host.time.seconds() - start, 2.13, 0.05);
}

TEST(AcquisitionTick, ATurnTakesThreeSeconds) {
  HeadlessProgram program;
  program.startAcquisition();
  program.acquireBlocks(1);
  const double start = program.host.time.seconds();
  program.acquireBlocks(10);
  EXPECT_NEAR(program.host.time.seconds() - start, 30.0, 0.3);
}

TEST(AcquisitionTick, ThePauseMakesUpForTheProcessingTime) {
  // The processing time is truncated to whole milliseconds, and the pause is at least 1 ms.
  const std::pair<double, int> cases[] = {{0.0, 870},  {0.1005, 770}, {0.1009, 770}, {0.8685, 2},
                                          {0.8695, 1}, {0.9, 1},      {5.0, 1}};
  for (const auto& [processing, pause] : cases) {
    HeadlessProgram program;
    program.host.time.setStep(1e-6);  // processing events takes almost no time
    program.state.startUp();
    program.host.serialPort.setReceiveBuffer(1600);
    program.host.serialPort.open();
    program.state.sendStartCommand();
    program.window.firstTrace.onChanged = [&, spent = false, time = processing]() mutable {
      if (!spent) program.host.time.jump(time);
      spent = true;
    };
    program.host.edge.run([&] { program.state.acquisitionTick(); });
    EXPECT_EQ(program.host.pauseTimer.intervalMs(), pause) << processing;
    EXPECT_TRUE(program.host.pauseTimer.enabled());
  }
}

TEST(AcquisitionTick, ThePauseEnablesTheTickAndDisablesItself) {
  HeadlessProgram program;
  program.state.startUp();
  program.host.pauseTimer.setEnabled(true);
  program.state.pauseElapsed();
  EXPECT_TRUE(program.host.tickTimer.enabled());
  EXPECT_FALSE(program.host.pauseTimer.enabled());
}

TEST(AcquisitionTick, DrawsRawTracesInLightGreenAndCorrectedOnesInBlue) {
  HeadlessProgram program;
  program.host.instrument.idleBlock = frames(100, 120, 140, 160);
  program.startAcquisition();
  program.acquireBlocks(1);
  EXPECT_EQ(linesIn(program.window.firstTrace, Colour::lightGreen), 255U);
  EXPECT_EQ(linesIn(program.window.firstTrace, Colour::blue), 255U);
  EXPECT_EQ(program.window.firstTrace.marks()[0].y1, 155);
}

TEST(AcquisitionTick, HandsTheBlockNumberToTheSlider) {
  HeadlessProgram program;
  program.startAcquisition();
  program.acquireBlocks(3);
  EXPECT_EQ(program.window.Slider1.value(), 3);
}

TEST(AcquisitionTick, ARejectedBlockIsReadAgainUnderItsNumber) {
  HeadlessProgram program;
  program.state.artefactThreshold = 70;
  program.host.instrument.blocks = {frames(128, 128, 128, 128), frames(128, 250, 128, 128), frames(128, 128, 128, 128)};
  program.state.startUp();
  program.state.artefactThreshold = 70;
  program.window.fileNameBox.type("prova");
  program.window.subjectBox.type("Rossi");
  program.window.Starts1.press();
  program.acquireBlocks(1);
  program.host.time.runUntil([&] { return program.state.artefactFlag == 1; });
  EXPECT_EQ(program.state.blockCount, 2);
  program.host.time.runUntil([&] { return program.host.pauseTimer.enabled(); });
  EXPECT_EQ(program.state.blockCount, 2);
  EXPECT_EQ(program.state.artefactFlag, 0);
}

TEST(AcquisitionTick, The200thTurnEndsWithoutReading) {
  HeadlessProgram program;
  program.state.startUp();
  program.state.blockCount = 199;
  program.state.acquisitionTick();
  EXPECT_EQ(program.state.blockCount, 200);
  EXPECT_EQ(program.state.stopRequested, 1);
  EXPECT_EQ(program.window.blockLabel.text(), "Totale= 600s");
  EXPECT_FALSE(program.host.tickTimer.enabled());
  EXPECT_FALSE(program.host.pauseTimer.enabled());
}

TEST(AcquisitionTick, AFaultInOneStepDoesNotStopTheOthers) {
  HeadlessProgram program;
  program.startAcquisition();
  // Drawing the first trace fails; the turn continues with its next step.
  program.window.firstTrace.onChanged = [] { throw RuntimeError(Cause::notWritable); };
  program.acquireBlocks(2);
  EXPECT_EQ(program.state.blockCount, 2);
  EXPECT_TRUE(program.host.faults.empty());
}

TEST(DrawTrace, HalvesGoToTheEvenUnit) {
  const std::pair<float, double> cases[] = {{0.5F, 254}, {1.5F, 254}, {2.5F, 252}};
  for (const auto& [sample, y] : cases) {
    HeadlessProgram program;
    fill(program.state, sample);
    platform::Surface surface("", 258, 258, 10);
    program.state.drawTrace(surface, 1, Colour::blue);
    EXPECT_EQ(surface.marks().front(), (Mark{Mark::Kind::line, Colour::blue, 1, y, 2, y})) << sample;
  }
}

}  // namespace
}  // namespace korvinel
