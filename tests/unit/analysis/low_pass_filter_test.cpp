#include <gtest/gtest.h>

#include "headless_program.h"
#include "signals.h"

namespace korvinel {
namespace {

class LowPassFilter : public testing::Test {
 protected:
  void SetUp() override { state_.startUp(); }

  template <typename Signal>
  void filter(Signal&& signal) {
    fillAllChannels(state_, signal);
    state_.computeComplexSpectra();
    state_.lowPassBlock();
  }

  /// Filters a block whose spectrum has a value at this index alone, on every channel.
  void filterSingleIndex(int index) {
    for (int channel = 1; channel <= 4; ++channel) {
      for (int i = 1; i <= 256; ++i) state_.spectrumRe[channel][i] = state_.spectrumIm[channel][i] = 0;
      state_.spectrumRe[channel][index] = 256 * 20;
    }
    state_.lowPassBlock();
  }

  double largestExcursion(int channel) const {
    double largest = 0;
    for (int s = 1; s <= 256; ++s)
      largest = std::fmax(largest, std::abs(static_cast<double>(state_.sampleBlock[channel][s]) - 128));
    return largest;
  }

  HeadlessProgram program_;
  MainState& state_ = program_.state;
};

TEST_F(LowPassFilter, AnInBandSineComesBackTimes106AroundTheMidLevel) {
  for (const int cycles : {2, 20, 50, 78})
    for (const double mean : {0.0, 128.0, 180.0}) {
      filter([&](int s) { return mean + sineAt(s, cycles, 40, 0.7); });
      for (int s = 1; s <= 256; ++s)
        ASSERT_NEAR(state_.sampleBlock[3][s], 128 + 1.06 * sineAt(s, cycles, 40, 0.7), 0.002)
            << cycles << " cycles, mean " << mean << ", sample " << s;
    }
}

TEST_F(LowPassFilter, IndexesFrom80To176AreRemoved) {
  for (const int index : {80, 81, 128, 129, 176}) {
    filterSingleIndex(index);
    EXPECT_EQ(largestExcursion(1), 0) << index;
  }
}

TEST_F(LowPassFilter, TheNeighboursOfTheCutAreKept) {
  for (const int index : {1, 2, 79, 177, 178, 256}) {
    filterSingleIndex(index);
    EXPECT_GT(largestExcursion(4), 20) << index;
  }
}

TEST_F(LowPassFilter, AnEightyCycleSineKeepsItsNegativeHalfWithTheImaginaryPartFoldedIn) {
  // 80 cycles are at index 81, which is removed, and at index 177, which is kept.
  filter([](int s) { return 128 + sineAt(s, 80, 40); });
  for (int s = 1; s <= 256; ++s)
    ASSERT_NEAR(state_.sampleBlock[1][s], 128 + 1.06 * (sineAt(s, 80, 20) + sineAt(s, 80, 20, std::numbers::pi / 2)),
                0.002)
        << s;
}

TEST_F(LowPassFilter, AHighSineComesBackAsTheMidLevel) {
  filter([](int s) { return 100 + sineAt(s, 100, 40); });
  EXPECT_LT(largestExcursion(2), 0.002);
}

TEST_F(LowPassFilter, IndexZeroOfTheSignalIsScaledAgainForEveryChannel) {
  filter([](int) { return 128; });
  // 128 at the first channel, then a 256th of the value left by the previous channel.
  EXPECT_EQ(state_.fftRe[0], Fixed(0));
  EXPECT_EQ(state_.filteredSamples[0], 128.0F);
}

TEST_F(LowPassFilter, EveryChannelIsFilteredByItsOwnSpectrum) {
  fillAllChannels(state_, [](int) { return 128; });
  fillChannel(state_, 3, [](int s) { return 128 + sineAt(s, 12, 30); });
  state_.computeComplexSpectra();
  state_.lowPassBlock();
  EXPECT_EQ(largestExcursion(1), 0);
  EXPECT_NEAR(largestExcursion(3), 30 * 1.06, 0.1);
  EXPECT_EQ(largestExcursion(4), 0);
}

}  // namespace
}  // namespace korvinel
