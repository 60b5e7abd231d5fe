#include <gtest/gtest.h>

#include "analysis/correlation.h"
#include "headless_program.h"
#include "signals.h"
#include "values/runtime_error.h"

namespace korvinel {
namespace {

using platform::Colour;
using Samples = Bounded<float, 258>;

template <typename Signal>
Samples samplesOf(Signal&& signal) {
  Samples samples;
  for (int s = 1; s <= 256; ++s) samples[s] = static_cast<float>(signal(s));
  return samples;
}

float correlation(const Samples& x, const Samples& y) { return correlationPercent(x.data(), y.data()); }

/// The program's correlation of a sine and a signal whose correlation with it is `r`.
float correlationOf(double r) {
  return correlation(samplesOf([](int s) { return sineAt(s, 9, 50); }), samplesOf([&](int s) {
                       return r * sineAt(s, 9, 50) + std::sqrt(1 - r * r) * sineAt(s, 9, 50, std::numbers::pi / 2);
                     }));
}

TEST(CorrelationPercent, IsRoundedTowardMinusInfinity) {
  const std::pair<double, float> cases[] = {{0.999, 99}, {-0.001, -1}, {0.001, 0}, {0.505, 50}, {-0.505, -51}};
  for (const auto& [r, percent] : cases) EXPECT_EQ(correlationOf(r), percent) << r;
}

TEST(CorrelationPercent, IdenticalChannelsGive100AndNegativesMinus100) {
  for (unsigned seed = 1; seed <= 50; ++seed) {
    Noise noise(seed);
    const Samples x = samplesOf([&](int) { return 128 + 100 * noise.next(); });
    const Samples negative = samplesOf([&](int s) { return -x[s]; });
    EXPECT_EQ(correlation(x, x), 100.0F);
    EXPECT_EQ(correlation(x, negative), -100.0F);
  }
}

TEST(CorrelationPercent, TheRoundingOfTheSumsMayCarryAnOppositeJustBeyondMinus100) {
  const Samples x = samplesOf([](int s) { return 128 + sineAt(s, 5, 30); });
  const Samples opposite = samplesOf([](int s) { return 128 - sineAt(s, 5, 60); });
  EXPECT_EQ(correlation(x, opposite), -101.0F);
}

TEST(CorrelationPercent, AFlatChannelGivesZero) {
  const Samples wave = samplesOf([](int s) { return sineAt(s, 9, 50); });
  const Samples flat = samplesOf([](int) { return 128; });
  EXPECT_EQ(correlation(wave, flat), 0.0F);
  EXPECT_EQ(correlation(flat, flat), 0.0F);
}

TEST(CorrelationPercent, SignalsSoSmallThatTheProductOfTheirSumsVanishesAsA32BitFloatCountAsFlat) {
  const auto wave = [](double amplitude) { return samplesOf([=](int s) { return sineAt(s, 9, amplitude); }); };
  EXPECT_EQ(correlation(wave(1e-11), wave(1e-11)), 100.0F);
  EXPECT_EQ(correlation(wave(1e-13), wave(1e-13)), 0.0F);
  EXPECT_EQ(correlation(wave(1e-13), wave(50)), 100.0F);  // one of the sums is large enough
}

TEST(CorrelationPercent, IsSymmetricAndNeverBeyondItsRange) {
  for (unsigned seed = 1; seed <= 200; ++seed) {
    Noise noise(seed);
    const double mixing = noise.next();
    const Samples x = samplesOf([&](int) { return 128 + 100 * noise.next(); });
    const Samples y =
        samplesOf([&](int s) { return 128 + mixing * (static_cast<double>(x[s]) - 128) + 9 * noise.next(); });
    EXPECT_EQ(correlation(x, y), correlation(y, x));
    EXPECT_LE(correlation(x, y), 100.0F);
    EXPECT_GE(correlation(x, y), -101.0F);
  }
}

TEST(CorrelationPercent, SumsThatLeaveTheFloatsAreAFault) {
  const Samples huge = samplesOf([](int s) { return s % 2 == 0 ? 1e30 : -1e30; });
  EXPECT_THROW((void)correlation(huge, huge), RuntimeError);
}

class BlockCorrelation : public testing::Test {
 protected:
  void SetUp() override {
    state_.startUp();
    state_.blockCount = 1;
    fillChannel(state_, 1, [](int s) { return 128 + sineAt(s, 5, 30); });
    fillChannel(state_, 2, [](int s) { return 128 + sineAt(s, 5, 30, std::numbers::pi / 3); });
    for (int s = 1; s <= 256; ++s) state_.sampleBlock[3][s] = -state_.sampleBlock[1][s];
    fillChannel(state_, 4, [](int s) { return 128 + sineAt(s, 5, 30, 0.1); });
  }

  HeadlessProgram program_;
  MainState& state_ = program_.state;
  ProgramValues& shared_ = program_.shared;
};

TEST_F(BlockCorrelation, ThePairsAre12And34And13And24) {
  state_.computeBlockCorrelation();
  EXPECT_NEAR(shared_.coherenceHistory[1][1], 50, 1);
  EXPECT_EQ(shared_.coherenceHistory[2][1], -100.0F);  // -99.5, rounded toward minus infinity
  EXPECT_EQ(shared_.coherenceHistory[3][1], -100.0F);
  EXPECT_NEAR(shared_.coherenceHistory[4][1], 100 * std::cos(std::numbers::pi / 3 - 0.1), 1);
}

TEST_F(BlockCorrelation, DoesNothingBeforeTheFirstBlock) {
  state_.blockCount = 0;
  const auto before = program_.window.Picture6.marks();
  state_.computeBlockCorrelation();
  EXPECT_EQ(shared_.coherenceHistory[3][0], 0.0F);
  EXPECT_EQ(program_.window.Picture6.marks(), before);
}

TEST_F(BlockCorrelation, Block203IsAFault) {
  state_.blockCount = 203;
  EXPECT_THROW(state_.computeBlockCorrelation(), RuntimeError);
}

TEST_F(BlockCorrelation, TheLiveTrendFollowsThePairOnShow) {
  state_.computeBlockCorrelation();
  const auto y = [](float percent) { return 100 - static_cast<double>(percent); };
  const auto& strip = program_.window.Picture6;
  EXPECT_TRUE(hasLine(strip, 0, 100, 3, y(shared_.coherenceHistory[1][1]), Colour::blue));
  state_.channelPair = 2;
  state_.blockCount = 2;
  state_.computeBlockCorrelation();
  EXPECT_TRUE(hasLine(strip, 0, 100, 3, 200, Colour::blue));
  EXPECT_TRUE(hasLine(strip, 3, 200, 6, 200, Colour::blue));
  EXPECT_FALSE(hasLine(strip, 0, 100, 3, y(shared_.coherenceHistory[1][1]), Colour::blue));
  EXPECT_TRUE(hasLine(strip, 60, 200, 60, 190, Colour::blue));
  EXPECT_TRUE(hasPoint(strip, 12, 50, Colour::blue));
}

TEST_F(BlockCorrelation, TheLiveTrendKeepsTheNoteMarks) {
  state_.noteCount = 1;
  state_.noteTimes[1] = 2;
  state_.computeBlockCorrelation();
  EXPECT_TRUE(hasLine(program_.window.Picture6, 6, 1, 6, 13, Colour::lightRed));
}

TEST_F(BlockCorrelation, TheStripStaysSmallInALongExamination) {
  for (int block = 1; block <= 199; ++block) {
    state_.blockCount = block;
    state_.computeBlockCorrelation();
  }
  EXPECT_LT(program_.window.Picture6.marks().size(), 600U);
}

TEST_F(BlockCorrelation, NoLiveTrendWithAFileOpen) {
  state_.openFilePath = "C:\\QUARVEL5\\DATAFILE\\a.QVD";
  const auto before = program_.window.Picture6.marks();
  state_.computeBlockCorrelation();
  EXPECT_EQ(program_.window.Picture6.marks(), before);
  EXPECT_EQ(shared_.coherenceHistory[3][1], -100.0F);
}

}  // namespace
}  // namespace korvinel
