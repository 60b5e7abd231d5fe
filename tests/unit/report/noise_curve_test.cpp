#include "report/noise_curve.h"
#include "eeg/spectrum.h"

#include <gtest/gtest.h>

#include <cmath>

namespace korvinel {
namespace {

ReportSpectrum flat(float value) {
  ReportSpectrum spectrum;
  for (int k = 1; k <= eeg::reportedIndexes; ++k) spectrum[k] = value;
  return spectrum;
}

TEST(NoiseFit, ThePeakIsTheFirstLargestOfTheSlowWaves) {
  struct Case {
    int first, second, peak;  ///< two equal large values
  };
  const Case cases[] = {{1, 5, 1}, {3, 7, 3}, {7, 20, 7}, {4, 4, 4}, {8, 30, 1}};
  for (const Case& c : cases) {
    ReportSpectrum spectrum = flat(2);
    spectrum[c.first] = spectrum[c.second] = 50;
    EXPECT_EQ(fitNoise(spectrum).peak, c.peak) << c.first << " and " << c.second;
  }
}

TEST(NoiseFit, TheCurveIsNineTenthsOfTheSpectrumAtThePeak) {
  ReportSpectrum spectrum = flat(2);
  spectrum[4] = 12.3F;
  const NoiseFit fit = fitNoise(spectrum);
  EXPECT_EQ(fit.height.count(), 110'700);
  EXPECT_EQ(fit.curve[4].count(), 110'700);
}

TEST(NoiseFit, TheValleyIsTheFirstSmallestValueFromThePeakOn) {
  ReportSpectrum spectrum = flat(9);
  spectrum[2] = 1;  // before the peak: ignored
  spectrum[5] = 40;
  spectrum[30] = spectrum[50] = 3;
  EXPECT_EQ(fitNoise(spectrum).valley, 30);
}

TEST(NoiseFit, ThePeakMayBeTheValleyItself) {
  ReportSpectrum spectrum = flat(5);
  EXPECT_EQ(fitNoise(spectrum).peak, 1);
  EXPECT_EQ(fitNoise(spectrum).valley, 1);
}

TEST(NoiseFit, ASpectrumOf3000AndMoreFromThePeakOnKeepsTheFirstIndexAsValley) {
  ReportSpectrum spectrum = flat(3000);
  spectrum[6] = 5000;
  const NoiseFit fit = fitNoise(spectrum);
  EXPECT_EQ(fit.peak, 6);
  EXPECT_EQ(fit.valley, 1);
}

TEST(NoiseFit, WithThePeakInTheFirstIndexEveryIndexFallsWithTheExponent) {
  ReportSpectrum spectrum = flat(2);
  spectrum[1] = 10;
  const NoiseFit fit = fitNoise(spectrum);
  EXPECT_EQ(fit.peak, 1);
  EXPECT_EQ(fit.curve[1].count(), 90'000);
  for (int k = 2; k <= 64; ++k) EXPECT_LE(fit.curve[k], fit.curve[k - 1]) << k;
}

TEST(NoiseFit, AnAllZeroSpectrumHasAZeroCurveAndTheLargestExponent) {
  const NoiseFit fit = fitNoise(flat(0));
  EXPECT_EQ(fit.peak, 1);
  EXPECT_EQ(fit.height.count(), 0);
  EXPECT_EQ(fit.exponent, 10);
  for (int k = 1; k <= 64; ++k) EXPECT_EQ(fit.curve[k].count(), 0) << k;
}

TEST(NoiseFit, WhenEveryCurveIsMoreThan3000MicrovoltsOffTheExponentIs11) {
  ReportSpectrum spectrum = flat(100'000);
  spectrum[2] = 0;
  const NoiseFit fit = fitNoise(spectrum);
  EXPECT_EQ(fit.valley, 2);
  EXPECT_EQ(fit.exponent, 11);
  const double shape = noiseShape(1, 2).toDouble();
  EXPECT_EQ(fit.curve[2], Fixed::nearest(std::pow(shape, 11) * 90'000));
}

TEST(NoiseFit, TheExponentComesClosestToTheValley) {
  // The shape at 64 is 0.7127; its powers 3..10 times a height of 90: 32.6 23.2 16.6 11.8 8.4 6.0 4.3 3.0.
  const std::pair<float, int> cases[] = {{33, 3}, {32, 3},   {28, 3}, {27.9F, 4}, {23, 4}, {16, 5},
                                         {12, 6}, {8.4F, 7}, {6, 8},  {4, 9},     {3, 10}, {0, 10}};
  for (const auto& [valley, exponent] : cases) {
    ReportSpectrum spectrum = flat(50);
    spectrum[1] = 100;
    spectrum[64] = valley;
    EXPECT_EQ(fitNoise(spectrum).exponent, exponent) << valley;
  }
}

TEST(NoiseFit, OfEqualErrorsTheLargerExponentWins) {
  // The valley is the peak: every exponent gives the same error there.
  EXPECT_EQ(fitNoise(flat(5)).exponent, 10);
}

TEST(NoiseFit, BelowThePeakTheCurveIsTheShapeTimesTheHeight) {
  ReportSpectrum spectrum = flat(2);
  spectrum[5] = 20;
  const NoiseFit fit = fitNoise(spectrum);
  for (int k = 1; k < 5; ++k) EXPECT_EQ(fit.curve[k], fit.height * noiseShape(5, k)) << k;
}

TEST(NoiseShape, IsOneAtThePeakRisesToItAndFallsTowardsTheRootOfOneHalf) {
  for (int peak = 1; peak <= 7; ++peak) {
    EXPECT_EQ(noiseShape(peak, peak).count(), 10'000);
    for (int k = 2; k <= peak; ++k) EXPECT_GT(noiseShape(peak, k), noiseShape(peak, k - 1)) << peak << ", " << k;
    for (int k = peak + 1; k <= 64; ++k) EXPECT_LE(noiseShape(peak, k), noiseShape(peak, k - 1)) << peak << ", " << k;
    EXPECT_GT(noiseShape(peak, 64).count(), 7'071);
  }
}

TEST(NoiseShape, ValuesWorkedOutByHand) {
  struct Case {
    int peak, index;
    std::int64_t shape;
  };
  // index over the root of (peak - index)^2 + index^2
  const Case cases[] = {{1, 2, 8'944}, {1, 4, 8'000}, {7, 1, 1'644}, {7, 4, 8'000}, {7, 3, 6'000}, {2, 3, 9'487}};
  for (const Case& c : cases) EXPECT_EQ(noiseShape(c.peak, c.index).count(), c.shape) << c.peak << ", " << c.index;
}

TEST(NoiseFit, EveryPowerAgreesWithTheMathematicsLibrary) {
  for (int peak = 1; peak <= 7; ++peak)
    for (int tenths = 1; tenths < 2'000; tenths += 7)
      for (const float valley : {0.0F, 0.5F, 2.0F, 8.0F, 20.0F, 60.0F}) {
        ReportSpectrum spectrum = flat(70);
        spectrum[64] = valley;
        spectrum[peak] = 70 + static_cast<float>(tenths) / 10;
        const NoiseFit fit = fitNoise(spectrum);
        for (int k = fit.peak; k <= 64; ++k) {
          const double power = std::pow(noiseShape(fit.peak, k).toDouble(), fit.exponent);
          ASSERT_EQ(fit.curve[k], Fixed::nearest(power * fit.height.toDouble())) << peak << " " << tenths << " " << k;
        }
      }
}

}  // namespace
}  // namespace korvinel
