#include <gtest/gtest.h>

#include <algorithm>

#include "analysis/spectrum.h"
#include "headless_program.h"
#include "signals.h"
#include "values/runtime_error.h"

namespace korvinel {
namespace {

/// A started program before block 1; all calibration factors are 1.
class SpectralAnalysis : public testing::Test {
 protected:
  void SetUp() override {
    state_.startUp();
    state_.blockCount = 1;
  }

  template <typename Act>
  static Fault faultOf(Act&& act) {
    try {
      act();
    } catch (const RuntimeError& fault) {
      return fault.fault;
    }
    ADD_FAILURE() << "no fault";
    return Fault::output;
  }

  HeadlessProgram program_;
  MainState& state_ = program_.state;
};

TEST_F(SpectralAnalysis, AConstantBlockHasNoSpectrum) {
  fillAllChannels(state_, [](int) { return 140; });
  state_.analyseBlockSpectra();
  EXPECT_EQ(state_.blockDeviation, Fixed(0));
  for (int channel = 1; channel <= 4; ++channel) {
    for (int i = 1; i <= 128; ++i) {
      ASSERT_EQ(state_.shapeSpectrum[channel][i], Fixed(0)) << i;
      ASSERT_EQ(state_.amplitudeSpectrum[channel][i], 0.0F) << i;
    }
    EXPECT_EQ(state_.mainsDisturbance[channel], Fixed(0));
  }
}

TEST_F(SpectralAnalysis, ASineOfKCyclesPeaksAtIndexKPlusOneWith150) {
  for (const int cycles : {1, 2, 20, 63, 100, 127}) {
    fillAllChannels(state_, [&](int s) { return 128 + sineAt(s, cycles, 50); });
    state_.analyseBlockSpectra();
    for (int i = 1; i <= 128; ++i) {
      const bool peak = i == cycles + 1;
      // Index 1 gets half of the first harmonic.
      const double expected = peak ? 150 : i == 1 && cycles == 1 ? 75 : 0;
      ASSERT_NEAR(state_.shapeSpectrum[2][i].toDouble(), expected, peak ? 0 : 0.01) << cycles << " cycles, " << i;
    }
  }
}

TEST_F(SpectralAnalysis, IndexOneIsHalfOfIndexTwoWhateverTheMean) {
  for (const double mean : {0.0, 128.0, 200.0}) {
    Noise noise(5);
    fillAllChannels(state_, [&](int) { return mean + 40 * noise.next(); });
    state_.analyseBlockSpectra();
    for (int channel = 1; channel <= 4; ++channel) {
      EXPECT_EQ(state_.spectrumRe[channel][1], Fixed::nearest(state_.spectrumRe[channel][2].toDouble() / 2));
      EXPECT_EQ(state_.spectrumIm[channel][1], Fixed::nearest(state_.spectrumIm[channel][2].toDouble() / 2));
    }
  }
}

TEST_F(SpectralAnalysis, ThePeakGetsThreeTimesTheDeviationTimesItsCalibration) {
  state_.binCalibration[21] = 0.5F;
  fillAllChannels(state_, [](int s) { return 128 + sineAt(s, 20, 50); });
  state_.analyseBlockSpectra();
  const double threefold = ((state_.blockDeviation * Fixed::nearest(0.02)) * Fixed(150)).toDouble();
  EXPECT_EQ(state_.amplitudeSpectrum[4][21], static_cast<float>(threefold * 0.5));
  EXPECT_NEAR(threefold, 3 * 50 * 2 / std::numbers::pi, 0.1);
}

TEST_F(SpectralAnalysis, TheRunningMeanIsTheArithmeticMean) {
  Bounded<double, 128> sums;
  Noise noise(11);
  constexpr int blocks = 40;
  for (int block = 1; block <= blocks; ++block) {
    state_.blockCount = block;
    fillAllChannels(state_, [&](int) { return 128 + 60 * noise.next(); });
    state_.analyseBlockSpectra();
    for (int i = 1; i <= 128; ++i) sums[i] += static_cast<double>(state_.amplitudeSpectrum[3][i]);
  }
  for (int i = 1; i <= 128; ++i)
    EXPECT_NEAR(state_.runningMeanSpectrum[3][i], sums[i] / blocks, 1e-5 * sums[i] / blocks + 1e-6) << i;
}

TEST_F(SpectralAnalysis, TheFirstBlockReplacesAnOldMean) {
  state_.runningMeanSpectrum[1][40] = 77;
  fillAllChannels(state_, [](int s) { return 128 + sineAt(s, 39, 20); });
  state_.analyseBlockSpectra();
  EXPECT_EQ(state_.runningMeanSpectrum[1][40], state_.amplitudeSpectrum[1][40]);
}

TEST_F(SpectralAnalysis, EveryBlockIsKeptUnderItsNumber) {
  state_.blockCount = 202;
  fillAllChannels(state_, [](int s) { return 128 + sineAt(s, 10, 20); });
  state_.analyseBlockSpectra();
  EXPECT_EQ(program_.shared.spectrumHistory[202][2][11], state_.amplitudeSpectrum[2][11]);
  EXPECT_GT(program_.shared.spectrumHistory[202][2][11], 30.0F);
}

TEST_F(SpectralAnalysis, Block203IsASubscriptFault) {
  state_.blockCount = 203;
  EXPECT_EQ(faultOf([&] { state_.analyseBlockSpectra(); }), Fault::subscript);
}

TEST_F(SpectralAnalysis, Block0IsADivisionByZero) {
  state_.blockCount = 0;
  EXPECT_EQ(faultOf([&] { state_.analyseBlockSpectra(); }), Fault::divisionByZero);
}

TEST_F(SpectralAnalysis, AnUnknownChannelIsASubscriptFault) {
  for (const int channel : {-1, 5}) {
    state_.channelIndex = channel;
    EXPECT_EQ(faultOf([&] { state_.transformChannel(); }), Fault::subscript) << channel;
  }
}

TEST_F(SpectralAnalysis, TheTransformOnlyPassLeavesTheAmplitudesAlone) {
  fillAllChannels(state_, [](int s) { return 128 + sineAt(s, 110, 20); });
  state_.computeComplexSpectra();
  EXPECT_EQ(state_.shapeSpectrum[1][111], Fixed(150));
  EXPECT_NE(state_.spectrumIm[1][111], Fixed(0));
  EXPECT_GT(state_.blockDeviation, Fixed(10));
  EXPECT_EQ(state_.amplitudeSpectrum[1][111], 0.0F);
  EXPECT_EQ(state_.runningMeanSpectrum[1][111], 0.0F);
  EXPECT_EQ(program_.shared.spectrumHistory[1][1][111], 0.0F);
  EXPECT_EQ(state_.mainsDisturbance[1], Fixed(0));
}

TEST_F(SpectralAnalysis, ColumnZeroBecomesACopyOfTheFirstSample) {
  fillAllChannels(state_, [](int s) { return s; });
  state_.sampleBlock[1][0] = 99;
  state_.computeComplexSpectra();
  EXPECT_EQ(state_.sampleBlock[1][0], 1.0F);
}

TEST_F(SpectralAnalysis, TheDeviationKeptIsThatOfTheLastChannel) {
  fillAllChannels(state_, [](int) { return 128; });
  fillChannel(state_, 4, [](int s) { return s % 2 == 0 ? 130 : 126; });
  state_.analyseBlockSpectra();
  EXPECT_EQ(state_.blockDeviation, Fixed(2));
}

TEST_F(SpectralAnalysis, MainsHumIsMeasuredPerChannel) {
  fillAllChannels(state_, [](int) { return 128; });
  fillChannel(state_, 2, [](int s) { return 128 + sineAt(s, 100, 30); });
  state_.analyseBlockSpectra();
  EXPECT_EQ(state_.mainsDisturbance[1], Fixed(0));
  EXPECT_EQ(state_.mainsDisturbance[2], Fixed::nearest(static_cast<double>(state_.amplitudeSpectrum[2][101])));
  EXPECT_GT(state_.mainsDisturbance[2], Fixed(50));
}

TEST_F(SpectralAnalysis, AnAmplitudeBeyondA32BitFloatIsAFault) {
  fillAllChannels(state_, [](int s) { return 128 + sineAt(s, 5, 100); });
  state_.binCalibration[6] = 3e38F;
  EXPECT_THROW(state_.analyseBlockSpectra(), RuntimeError);
}

TEST(LargestAmplitude, LooksAtBothEndsOfTheRangeAndNoFurther) {
  Bounded<float, 130> spectrum;
  spectrum[99] = spectrum[115] = 90;
  EXPECT_EQ(largestAmplitude(spectrum.data(), eeg::mainsRange), Fixed(0));
  spectrum[100] = 5;
  EXPECT_EQ(largestAmplitude(spectrum.data(), eeg::mainsRange), Fixed(5));
  spectrum[114] = 6;
  EXPECT_EQ(largestAmplitude(spectrum.data(), eeg::mainsRange), Fixed(6));
}

TEST(LargestAmplitude, WhicheverComesFirstTheLargestIsKeptAndRoundedToFourDecimals) {
  // Only the value is kept, so it does not matter which of several equal maxima is taken, nor if only rounding makes
  // them equal.
  const std::pair<std::pair<float, float>, std::int64_t> cases[] = {{{7.00004F, 7.00002F}, 70'000},
                                                                    {{7.00002F, 7.00004F}, 70'000},
                                                                    {{7.00006F, 7.00002F}, 70'001},
                                                                    {{7.00002F, 7.00006F}, 70'001},
                                                                    {{7, 7}, 70'000},
                                                                    {{9, 7}, 90'000}};
  for (const auto& [amplitudes, counts] : cases) {
    Bounded<float, 130> spectrum;
    spectrum[103] = amplitudes.first;
    spectrum[104] = amplitudes.second;
    EXPECT_EQ(largestAmplitude(spectrum.data(), eeg::mainsRange).count(), counts)
        << amplitudes.first << ", " << amplitudes.second;
  }
}

TEST(RunningMean, ACountOfZeroIsAFault) { EXPECT_THROW((void)runningMean(1, 2, 0), RuntimeError); }

TEST(MeanDeviation, IsTakenAboutTheMean) {
  std::array<Fixed, 257> samples;
  samples.fill(0);
  for (std::size_t i = 1; i <= 128; ++i) samples[i] = 10;
  EXPECT_EQ(meanDeviation(samples.data()), Fixed(5));
}

}  // namespace
}  // namespace korvinel
