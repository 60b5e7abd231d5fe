#include <gtest/gtest.h>

#include "headless_program.h"
#include "signals.h"
#include "values/runtime_error.h"

namespace korvinel {
namespace {

using platform::Colour;

class Coherence : public testing::Test {
 protected:
  void SetUp() override {
    state_.startUp();
    state_.blockCount = 1;
  }

  void fillNoise(unsigned seed) {
    Noise noise(seed);
    fillAllChannels(state_, [&](int) { return 60 * noise.next(); });
  }

  void compute() {
    state_.computeComplexSpectra();
    state_.computeCoherence();
  }

  /// Sets up a finished recording whose pair 1 has these block correlations.
  void recording(std::initializer_list<float> percents) {
    int block = 0;
    for (const float percent : percents) shared_.coherenceHistory[1][++block] = percent;
    shared_.fileBlockCount = block;
  }

  HeadlessProgram program_;
  MainState& state_ = program_.state;
  ProgramValues& shared_ = program_.shared;
};

TEST_F(Coherence, IdenticalChannelsGive100AtEveryIndex) {
  fillNoise(1);
  state_.sampleBlock[2] = state_.sampleBlock[1];
  for (state_.blockCount = 1; state_.blockCount <= 3; ++state_.blockCount) compute();
  for (int i = 1; i <= 128; ++i) {
    ASSERT_EQ(shared_.coherenceSpectrumHistory[3][1][i], 100.0F) << i;
    ASSERT_EQ(state_.meanCoherence[1][i], 100.0F) << i;
  }
}

TEST_F(Coherence, ChannelsInAntiphaseGiveMinus100) {
  fillNoise(2);
  for (int s = 1; s <= 256; ++s) state_.sampleBlock[4][s] = -state_.sampleBlock[3][s];
  compute();
  for (int i = 1; i <= 128; ++i) ASSERT_EQ(shared_.coherenceSpectrumHistory[1][2][i], -100.0F) << i;
}

TEST_F(Coherence, AnEmptySpectrumHasPhaseZero) {
  for (int channel = 1; channel <= 2; ++channel) state_.spectrumIm[channel][30] = 5;
  state_.spectrumRe[1][30] = 5;  // 45 degrees; channel 2 has 0
  state_.spectrumRe[3][30] = 5;  // 90 degrees; channel 1 has 45
  state_.computeCoherence();
  EXPECT_NEAR(shared_.coherenceSpectrumHistory[1][1][30], 100 * std::cos(std::numbers::pi / 4), 0.01);
  EXPECT_NEAR(shared_.coherenceSpectrumHistory[1][3][30], 100 * std::cos(std::numbers::pi / 4), 0.01);
  // Channel 4 is empty and channel 2 has no real part: both have phase 0.
  EXPECT_EQ(shared_.coherenceSpectrumHistory[1][4][30], 100.0F);
}

TEST_F(Coherence, ThePairsAre12And34And13And24) {
  // Channel c has the phase 0.3 c; the cosine of the difference shows which channels were compared.
  for (int channel = 1; channel <= 4; ++channel) {
    state_.spectrumIm[channel][10] = Fixed::nearest(100 * std::cos(0.3 * channel));
    state_.spectrumRe[channel][10] = Fixed::nearest(100 * std::sin(0.3 * channel));
  }
  state_.spectrumRe[2][10] = 0;  // channel 2: phase 0
  state_.computeCoherence();
  const auto& coherence = shared_.coherenceSpectrumHistory[1];
  EXPECT_NEAR(coherence[1][10], 100 * std::cos(0.3), 0.05);
  EXPECT_NEAR(coherence[2][10], 100 * std::cos(0.3), 0.05);
  EXPECT_NEAR(coherence[3][10], 100 * std::cos(0.6), 0.05);
  EXPECT_NEAR(coherence[4][10], 100 * std::cos(1.2), 0.05);
}

TEST_F(Coherence, TheMeanRunsOverTheBlocks) {
  double sum = 0;
  for (int block = 1; block <= 25; ++block) {
    state_.blockCount = block;
    fillNoise(static_cast<unsigned>(block) * 77);
    compute();
    sum += static_cast<double>(shared_.coherenceSpectrumHistory[block][4][55]);
  }
  EXPECT_NEAR(state_.meanCoherence[4][55], sum / 25, 1e-3);
}

TEST_F(Coherence, Block203IsAFault) {
  state_.blockCount = 203;
  EXPECT_THROW(compute(), RuntimeError);
}

TEST_F(Coherence, TheSynchronyAverageIsTruncatedToOneDecimal) {
  recording({33, 34});
  state_.summariseSynchrony();
  EXPECT_EQ(state_.syncAverage[1], Fixed::nearest(33.5));
  recording({33, 34, 34});
  state_.summariseSynchrony();
  EXPECT_EQ(state_.syncAverage[1], Fixed::nearest(33.6));
  recording({-33, -34, -34});
  state_.summariseSynchrony();
  EXPECT_EQ(state_.syncAverage[1], Fixed::nearest(-33.7));
}

TEST_F(Coherence, ASummaryOfNoBlocksIsADivisionByZero) {
  shared_.fileBlockCount = 0;
  EXPECT_THROW(state_.summariseSynchrony(), RuntimeError);
}

TEST_F(Coherence, TheTrendHasThreeUnitsABlockAndStartsAtMidHeight) {
  recording({100, 0, -100});
  state_.summariseSynchrony();
  const auto& strip = program_.window.Picture6;
  EXPECT_TRUE(hasLine(strip, 0, 100, 3, 0, Colour::blue));
  EXPECT_TRUE(hasLine(strip, 3, 0, 6, 100, Colour::blue));
  EXPECT_TRUE(hasLine(strip, 6, 100, 9, 200, Colour::blue));
  EXPECT_EQ(linesIn(strip, Colour::blue), 3U + 11U);  // and a mark every minute
  EXPECT_TRUE(hasLine(strip, 600, 200, 600, 190, Colour::blue));
  for (const auto& [x, y] : {std::pair{600, 50}, {12, 150}, {6, 100}, {600, 100}})
    EXPECT_TRUE(hasPoint(strip, x, y, Colour::blue)) << x << ", " << y;
  EXPECT_FALSE(hasPoint(strip, 6, 50, Colour::blue));
}

TEST_F(Coherence, TheSummaryNamesThePairOnShow) {
  recording({33, 34});
  shared_.coherenceHistory[2][1] = 12;
  state_.summariseSynchrony();
  EXPECT_TRUE(program_.window.Picture6.shows("Syncro 1-2 media= 33.5"));
  EXPECT_TRUE(hasPoint(program_.window.Picture6, 470, 170, Colour::white));  // from where it is printed
  state_.channelPair = 2;
  state_.summariseSynchrony();
  EXPECT_TRUE(program_.window.Picture6.shows("Syncro 3-4 media= 6"));
  EXPECT_TRUE(hasLine(program_.window.Picture6, 0, 100, 3, 88, Colour::blue));
}

TEST_F(Coherence, TheSummaryMarksTheNotes) {
  recording({10, 10, 10, 10, 10});
  state_.noteCount = 2;
  state_.noteTimes[1] = 2;
  state_.noteTimes[2] = 5;
  state_.summariseSynchrony();
  EXPECT_TRUE(hasLine(program_.window.Picture6, 6, 1, 6, 13, Colour::lightRed));
  EXPECT_TRUE(hasLine(program_.window.Picture6, 15, 1, 15, 13, Colour::lightRed));
  EXPECT_EQ(linesIn(program_.window.Picture6, Colour::lightRed), 2U);
}

TEST_F(Coherence, TheGraphRunsUpwardsWithHighCoherenceAtTheLeft) {
  state_.meanCoherence[1][1] = 100;
  state_.meanCoherence[1][2] = -100;
  state_.meanCoherence[1][64] = 40.5F;
  state_.drawCoherenceGraph();
  const auto& graph = program_.window.coherenceGraph;
  EXPECT_TRUE(hasLine(graph, 100, 258, 0, 254, Colour::blue));
  EXPECT_TRUE(hasLine(graph, 0, 254, 200, 250, Colour::blue));
  EXPECT_TRUE(hasLine(graph, 100, 6, 60, 2, Colour::blue));  // 59.5 rounds to the even 60
  EXPECT_EQ(linesIn(graph, Colour::blue), 64U);
}

TEST_F(Coherence, TheGraphHasItsZeroLineAndFrequencyGuides) {
  state_.drawCoherenceGraph();
  const auto& graph = program_.window.coherenceGraph;
  for (const auto& [x, y] : {std::pair{100, 1}, {100, 249}, {1, 43}, {191, 43}, {1, 258}, {11, 172}})
    EXPECT_TRUE(hasPoint(graph, x, y, Colour::blue)) << x << ", " << y;
  EXPECT_EQ(graph.marks().size(), 32U + 6U * 20U + 64U);
}

TEST_F(Coherence, TheGraphAndTheSummaryAreDrawnOnClearedSurfaces) {
  recording({10, 20});
  for (int time = 1; time <= 2; ++time) {
    state_.drawCoherenceGraph();
    state_.summariseSynchrony();
    EXPECT_EQ(linesIn(program_.window.coherenceGraph, Colour::blue), 64U);
    EXPECT_EQ(linesIn(program_.window.Picture6, Colour::blue), 2U + 11U);
  }
}

TEST_F(Coherence, TheGraphShowsThePairOfTheChannelsChosen) {
  state_.meanCoherence[2][1] = 60;
  state_.channelPair = 2;
  state_.drawCoherenceGraph();
  EXPECT_TRUE(hasLine(program_.window.coherenceGraph, 100, 258, 40, 254, Colour::blue));
}

TEST_F(Coherence, TheSummaryBeginsOnAnEmptyStrip) {
  recording({10, 20});
  state_.summariseSynchrony();
  const auto once = program_.window.Picture6.marks();
  program_.window.Picture6.line(1, 1, 600, 200, Colour::lightCyan);
  state_.summariseSynchrony();
  EXPECT_EQ(program_.window.Picture6.marks(), once);
}

TEST_F(Coherence, TheSummaryIsWrittenFromAWhiteDotAtItsPlace) {
  recording({10, 20});
  for (const int pair : {1, 2}) {
    state_.channelPair = pair;
    state_.summariseSynchrony();
    EXPECT_TRUE(hasPoint(program_.window.Picture6, 470, 170, Colour::white));
    for (const platform::Mark& mark : program_.window.Picture6.marks()) {
      if (mark.kind != platform::Mark::Kind::text) continue;
      EXPECT_EQ(mark.x1, 470) << mark.text;
      EXPECT_EQ(mark.y1, 170) << mark.text;
    }
  }
}

TEST_F(Coherence, HalvesOfTheGraphAndOfTheTrendGoToTheEvenUnit) {
  const std::pair<float, double> cases[] = {{0.5F, 100}, {1.5F, 98}, {-0.5F, 100}, {-1.5F, 102}};
  for (const auto& [percent, x] : cases) {
    state_.meanCoherence[1][1] = percent;
    state_.drawCoherenceGraph();
    EXPECT_TRUE(hasLine(program_.window.coherenceGraph, 100, 258, x, 254, Colour::blue)) << percent;
    recording({percent});
    state_.summariseSynchrony();
    EXPECT_TRUE(hasLine(program_.window.Picture6, 0, 100, 3, x, Colour::blue)) << percent;
  }
}

}  // namespace
}  // namespace korvinel
