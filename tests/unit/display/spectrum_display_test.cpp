#include "display/spectrum_display.h"

#include <gtest/gtest.h>

#include "eeg/bands.h"
#include "headless_program.h"
#include "signals.h"
#include "values/runtime_error.h"

namespace korvinel {
namespace {

using platform::Colour;
using platform::Mark;
using platform::Surface;

std::vector<Mark> barsOn(const Surface& panel) {
  std::vector<Mark> bars;
  for (const Mark& mark : panel.marks())
    if (mark.kind == Mark::Kind::box) bars.push_back(mark);
  return bars;
}

class SpectrumDisplay : public testing::Test {
 protected:
  void SetUp() override {
    state_.startUp();
    state_.blockCount = 4;
  }

  HeadlessProgram program_;
  MainState& state_ = program_.state;
  MainWindow& window_ = program_.window;
};

TEST(BarColour, FollowsTheBands) {
  const std::pair<int, int> cases[] = {{1, 4},   {7, 4},  {8, 12}, {16, 12}, {17, 10},
                                       {26, 10}, {27, 9}, {53, 9}, {54, 13}, {64, 13}};
  for (const auto& [index, colour] : cases) EXPECT_EQ(eeg::barColour(index), colour) << index;
}

TEST(BarScale, IsPanelUnitsAMicrovoltInFourDecimals) {
  EXPECT_EQ(barScale(60).count(), 42'333);
  EXPECT_EQ(barScale(200).count(), 12'700);
  EXPECT_THROW((void)barScale(0), RuntimeError);
}

TEST(BarEnds, FaceEachOtherAndStopAtTheFarEdge) {
  struct Case {
    float microvolts;
    double left, right;
  };
  const Case cases[] = {{0, 257, 1}, {10, 215, 43}, {60, 3, 255}, {61, 1, 258}, {1e9F, 1, 258}};
  for (const auto& [microvolts, left, right] : cases) {
    EXPECT_EQ(leftBarEnd(barScale(60), microvolts), left) << microvolts;
    EXPECT_EQ(rightBarEnd(barScale(60), microvolts), right) << microvolts;
  }
}

TEST(MainsVerdict, CountsBothLimitsAsMedium) {
  EXPECT_EQ(mainsVerdict(1, Fixed::nearest(29.9999)), "1=basso  ");
  EXPECT_EQ(mainsVerdict(2, 30), "2=medio  ");
  EXPECT_EQ(mainsVerdict(3, 60), "3=medio  ");
  EXPECT_EQ(mainsVerdict(4, Fixed::nearest(60.01)), "4=alto!  ");
}

TEST_F(SpectrumDisplay, BarsStandUpwardFromTheLowFrequenciesInTheirColours) {
  state_.amplitudeSpectrum[1][1] = 10;
  state_.amplitudeSpectrum[2][20] = 60;
  state_.drawSpectrumDisplay();
  const auto left = barsOn(window_.leftSpectrum), right = barsOn(window_.rightSpectrum);
  ASSERT_EQ(left.size(), 64U);
  ASSERT_EQ(right.size(), 64U);
  EXPECT_EQ(left[0], (Mark{Mark::Kind::box, Colour::red, 258, 254, 215, 256}));
  EXPECT_EQ(left[63], (Mark{Mark::Kind::box, Colour::lightMagenta, 258, 2, 257, 4}));
  EXPECT_EQ(right[19], (Mark{Mark::Kind::box, Colour::lightGreen, 0, 178, 255, 180}));
  EXPECT_EQ(right[7].colour, Colour::lightRed);
  EXPECT_EQ(right[26].colour, Colour::lightBlue);
  EXPECT_EQ(state_.bandColour, 13);
}

TEST_F(SpectrumDisplay, TheFirstPairIsNamedC1AndC2) {
  state_.drawSpectrumDisplay();
  EXPECT_TRUE(window_.leftSpectrum.shows("C1"));
  EXPECT_TRUE(window_.rightSpectrum.shows("C2"));
}

TEST_F(SpectrumDisplay, TheSecondPairLeavesTheLeftNameAndEndsAsC4) {
  state_.drawSpectrumDisplay();
  state_.channelPair = 2;
  state_.amplitudeSpectrum[3][5] = state_.amplitudeSpectrum[4][6] = 60;
  state_.drawSpectrumDisplay();
  EXPECT_EQ(state_.pairLabelLeft, "C1");
  EXPECT_EQ(state_.pairLabelRight, "C4");
  EXPECT_TRUE(window_.leftSpectrum.shows("C1"));
  EXPECT_TRUE(window_.rightSpectrum.shows("C4"));
  EXPECT_EQ(barsOn(window_.leftSpectrum)[4].x2, 3);
  EXPECT_EQ(barsOn(window_.rightSpectrum)[5].x2, 255);
}

TEST_F(SpectrumDisplay, ThePanelsHaveADottedGridAndDoNotPileUp) {
  for (int block = 0; block < 10; ++block) state_.drawSpectrumDisplay();
  EXPECT_TRUE(hasPoint(window_.leftSpectrum, 1, 43, Colour::blue));
  EXPECT_TRUE(hasPoint(window_.rightSpectrum, 43, 1, Colour::blue));
  EXPECT_EQ(barsOn(window_.leftSpectrum).size(), 64U);
}

TEST_F(SpectrumDisplay, TheFrequencyAxisIsLabelled) {
  window_.frequencyAxis.clear();
  state_.drawSpectrumDisplay();
  EXPECT_EQ(window_.frequencyAxis.texts(), (std::vector<std::string>{"30", "Hz", "25", "20", "15", "10", "5", "0"}));
}

TEST_F(SpectrumDisplay, WhileAcquiringTheBlockJustAnalysedIsShown) {
  state_.amplitudeSpectrum[1][20] = 42;
  program_.shared.spectrumHistory[4][1][20] = 7;
  state_.drawSpectrumDisplay();
  EXPECT_EQ(state_.amplitudeSpectrum[1][20], 42.0F);
}

TEST_F(SpectrumDisplay, WithARecordingInMemoryTheStoredBlockIsShown) {
  state_.intervalSelectable = 1;
  state_.amplitudeSpectrum[1][20] = state_.amplitudeSpectrum[4][128] = 42;
  program_.shared.spectrumHistory[4][1][20] = 7;
  state_.drawSpectrumDisplay();
  EXPECT_EQ(state_.amplitudeSpectrum[1][20], 7.0F);
  EXPECT_EQ(state_.amplitudeSpectrum[4][128], 0.0F);
}

TEST_F(SpectrumDisplay, TheMainsVerdictStandsInChannelOrder) {
  state_.mainsDisturbance[1] = 10;
  state_.mainsDisturbance[2] = 30;
  state_.mainsDisturbance[3] = 61;
  state_.drawSpectrumDisplay();
  EXPECT_EQ(window_.zLabel.text(), "     Disturbo a  50Hz\r1=basso  2=medio  3=alto!  4=basso  ");
}

TEST_F(SpectrumDisplay, WithAFileOpenTheLabelHoldsItsDate) {
  state_.openFilePath = "C:\\QUARVEL5\\DATAFILE\\a.QVD";
  state_.fileDateField = "21/11/2026 V3";
  state_.headerText1 = "Nessun dato in memoria! Prima apri un file!";
  state_.mainsDisturbance[1] = 90;
  state_.drawSpectrumDisplay();
  EXPECT_EQ(window_.zLabel.text(), "21/11/2026 V3\r");
}

TEST_F(SpectrumDisplay, TheTimeIsThreeSecondsABlock) {
  state_.drawSpectrumDisplay();
  EXPECT_EQ(window_.timeLabel.text(), "Tempo=12 secondi");
}

TEST_F(SpectrumDisplay, TheStripIsLeftAloneUntilReplay) {
  const auto before = window_.Picture6.marks();
  state_.drawSpectrumDisplay();
  EXPECT_EQ(window_.Picture6.marks(), before);
}

TEST_F(SpectrumDisplay, ReplayShowsTheWholeTrendTheValueAndACursor) {
  state_.replayActive = 1;
  program_.shared.fileBlockCount = 6;
  for (int block = 1; block <= 6; ++block) program_.shared.coherenceHistory[1][block] = static_cast<float>(10 * block);
  state_.drawSpectrumDisplay();
  const Surface& strip = window_.Picture6;
  EXPECT_TRUE(hasLine(strip, 0, 100, 3, 90, Colour::blue));
  EXPECT_TRUE(hasLine(strip, 15, 50, 18, 40, Colour::blue));
  EXPECT_EQ(linesIn(strip, Colour::blue), 6U + 11U);
  EXPECT_TRUE(hasLine(strip, 12, 1, 12, 200, Colour::lightCyan));
  EXPECT_TRUE(strip.shows("Syncro 1-2=40"));
}

TEST_F(SpectrumDisplay, ReplayNamesTheSecondPair) {
  state_.replayActive = 1;
  state_.channelPair = 2;
  program_.shared.coherenceHistory[2][4] = -18;
  state_.drawSpectrumDisplay();
  EXPECT_TRUE(window_.Picture6.shows("Syncro 3-4=-18"));
}

TEST_F(SpectrumDisplay, BeyondTheHistoryNoValueIsPrinted) {
  state_.replayActive = 1;
  state_.blockCount = 203;
  state_.drawSpectrumDisplay();
  EXPECT_TRUE(window_.Picture6.texts().empty());
  EXPECT_TRUE(hasLine(window_.Picture6, 609, 1, 609, 200, Colour::lightCyan));
}

TEST_F(SpectrumDisplay, TheAmplitudeBarRedrawsARecordingInMemoryAtOnce) {
  state_.intervalSelectable = 1;
  program_.shared.spectrumHistory[4][2][20] = 40;
  window_.HScroll1.moveTo(80);
  EXPECT_EQ(barsOn(window_.rightSpectrum).at(19).x2, 128);
  EXPECT_EQ(window_.amplitudeLabel.text(), "EEG microvolts80");
}

TEST_F(SpectrumDisplay, TheAmplitudeBarWaitsForTheNextBlockWhileAcquiring) {
  window_.HScroll1.moveTo(80);
  EXPECT_TRUE(barsOn(window_.rightSpectrum).empty());
}

TEST(BarEnds, HalvesGoToTheEvenUnit) {
  struct Case {
    float microvolts;
    double left, right;
  };
  const Fixed twoUnits = barScale(127);
  for (const auto& [microvolts, left, right] : {Case{0.25F, 256, 2}, Case{0.75F, 256, 2}, Case{1.25F, 254, 4}}) {
    EXPECT_EQ(leftBarEnd(twoUnits, microvolts), left) << microvolts;
    EXPECT_EQ(rightBarEnd(twoUnits, microvolts), right) << microvolts;
  }
}

TEST_F(SpectrumDisplay, TheSynchronyOfAReplayStandsAtItsPlace) {
  state_.replayActive = 1;
  for (const int pair : {1, 2}) {
    state_.channelPair = pair;
    state_.drawSpectrumDisplay();
    const Mark text = *std::find_if(window_.Picture6.marks().begin(), window_.Picture6.marks().end(),
                                    [](const Mark& mark) { return mark.kind == Mark::Kind::text; });
    EXPECT_EQ(text.x1, 450) << text.text;
    EXPECT_EQ(text.y1, 170) << text.text;
  }
}

TEST_F(SpectrumDisplay, OfAReplayOnlyTheCursorOfTheBlockOnShowStands) {
  state_.replayActive = 1;
  program_.shared.fileBlockCount = 6;
  for (const int block : {3, 4, 5}) {
    state_.blockCount = block;
    state_.drawSpectrumDisplay();
    EXPECT_EQ(linesIn(window_.Picture6, Colour::lightCyan), 1U) << block;
    EXPECT_TRUE(hasLine(window_.Picture6, 3 * block, 1, 3 * block, 200, Colour::lightCyan)) << block;
  }
}

}  // namespace
}  // namespace korvinel
