#include "report/statistics.h"

#include <gtest/gtest.h>

#include <cmath>

#include "eeg/bands.h"
#include "headless_report.h"
#include "values/runtime_error.h"

namespace korvinel {
namespace {

using eeg::IndexRange;
constexpr IndexRange deltaBand = eeg::delta.indexes, thetaBand = eeg::theta.indexes, alphaBand = eeg::alpha.indexes,
                     betaBand = eeg::beta.indexes;

ReportSpectrum flat(float value) {
  ReportSpectrum spectrum;
  for (int k = 1; k <= eeg::reportedIndexes; ++k) spectrum[k] = value;
  return spectrum;
}

double meanOf(const ReportSpectrum& spectrum) {
  double sum = 0;
  for (int k = 1; k <= eeg::reportedIndexes; ++k) sum += static_cast<double>(spectrum[k]);
  return sum / eeg::reportedIndexes;
}

float maximumOf(const ReportSpectrum& spectrum) {
  float largest = spectrum[1];
  for (int k = 2; k <= eeg::reportedIndexes; ++k) largest = std::max(largest, spectrum[k]);
  return largest;
}

TEST(MeanToTenth, FloorsTheStoredMeanTowardMinusInfinity) {
  struct Case {
    double sum;
    int blocks;
    float mean;
  };
  const Case cases[] = {{30, 10, 3.0F},    {0.99, 1, 0.9F},       {1, 3, 0.3F},    {-1, 3, -0.4F},
                        {-0.05, 1, -0.1F}, {1234.56, 1, 1234.5F}, {20, -5, -4.0F}, {-30, 10, -3.0F}};
  for (const Case& c : cases) EXPECT_EQ(meanToTenth(c.sum, c.blocks), c.mean) << c.sum << " over " << c.blocks;
}

TEST(MeanToTenth, ANumberThatSinglePrecisionHoldsTooLowIsFlooredFromThere) {
  // 0.3 is stored as 0.300000012 and stays; 0.7 is stored as 0.699999988 and becomes 0.6.
  EXPECT_EQ(meanToTenth(0.3, 1), 0.3F);
  EXPECT_EQ(meanToTenth(0.7, 1), 0.6F);
}

TEST(MeanToTenth, NothingOverAReversedIntervalIsZeroWithoutASign) {
  EXPECT_EQ(std::signbit(meanToTenth(0.0, -20)), false);
}

TEST(MeanToTenth, NoBlockIsADivisionByZero) {
  try {
    static_cast<void>(meanToTenth(0, 0));
    FAIL();
  } catch (const RuntimeError& fault) {
    EXPECT_EQ(fault.fault, Fault::divisionByZero);
  }
}

TEST(Bands, LimitsAndSizesOfTheFourBands) {
  const std::pair<IndexRange, int> bands[] = {{deltaBand, 7}, {thetaBand, 9}, {alphaBand, 10}, {betaBand, 38}};
  int next = 1;
  for (const auto& [band, size] : bands) {
    EXPECT_EQ(band.first, next);
    EXPECT_EQ(band.size(), size);
    next = band.last + 1;
  }
  EXPECT_EQ(next, 65);
}

TEST(BandMaximum, SeesBothEndsOfItsBandAndNothingBeyond) {
  for (const IndexRange band : {deltaBand, thetaBand, alphaBand, betaBand}) {
    for (const int inside : {band.first, band.last}) {
      ReportSpectrum spectrum;
      spectrum[inside] = 7.5F;
      EXPECT_EQ(bandMaximum(spectrum, band).count(), 75'000) << inside;
    }
    for (const int outside : {band.first - 1, band.last + 1}) {
      ReportSpectrum spectrum;
      spectrum[outside] = 7.5F;
      EXPECT_EQ(bandMaximum(spectrum, band).count(), 0) << outside;
    }
  }
}

TEST(BandMaximum, IsFlooredToOneDecimalAndNeverBelowZero) {
  const std::pair<float, std::int64_t> cases[] = {{12.39F, 123'000}, {0.09F, 0}, {12.3F, 123'000}, {-4, 0}};
  for (const auto& [level, expected] : cases) EXPECT_EQ(bandMaximum(flat(level), alphaBand).count(), expected) << level;
}

TEST(BandMean, IsTheSumOverTheNumberOfIndexesFlooredToOneDecimal) {
  struct Case {
    IndexRange band;
    float value;  ///< of the first index; the others are 0
    std::int64_t mean;
  };
  const Case cases[] = {{deltaBand, 7, 10'000},   {deltaBand, 6.9F, 9'000}, {thetaBand, 9, 10'000},
                        {thetaBand, 2.7F, 3'000}, {thetaBand, 8.9F, 9'000}, {alphaBand, 10, 10'000},
                        {alphaBand, 9.9F, 9'000}, {betaBand, 38, 10'000},   {betaBand, 37.9F, 9'000},
                        {betaBand, 3.7F, 0},      {betaBand, 26.6F, 7'000}};
  for (const Case& c : cases) {
    ReportSpectrum spectrum;
    spectrum[c.band.first] = c.value;
    EXPECT_EQ(bandMean(spectrum, c.band).count(), c.mean) << c.band.first << ": " << c.value;
  }
}

TEST(BandMean, EqualValuesHaveThatMean) {
  for (const IndexRange band : {deltaBand, thetaBand, alphaBand, betaBand})
    for (int tenths = 1; tenths <= 500; ++tenths)
      EXPECT_EQ(bandMean(flat(static_cast<float>(tenths) / 10), band).count(), tenths * 1000) << tenths;
}

TEST(LevelCoherence, TheMeanOfTheSpectrumBecomesThePairsCoherence) {
  ReportSpectrum spectrum;
  for (int k = 1; k <= eeg::reportedIndexes; ++k) spectrum[k] = static_cast<float>(k - 20);
  levelCoherence(spectrum, 43.5F);
  EXPECT_NEAR(meanOf(spectrum), 43.5, 1e-4);
  EXPECT_EQ(spectrum[2] - spectrum[1], 1);
}

TEST(CapCoherence, OnlyASpectrumThatReaches100IsScaled) {
  struct Case {
    float maximum, expected;
  };
  const Case cases[] = {{100, 100}, {99.9F, 99.9F}, {250, 100}, {100.1F, 100}, {-5, -5}, {0, 0}};
  for (const Case& c : cases) {
    ReportSpectrum spectrum = flat(c.maximum);
    spectrum[7] = c.maximum - 50;
    capCoherence(spectrum);
    EXPECT_FLOAT_EQ(maximumOf(spectrum), c.expected) << c.maximum;
  }
}

TEST(CapCoherence, AMaximumOfExactly100ChangesNothing) {
  ReportSpectrum spectrum = flat(31.7F);
  spectrum[64] = 100;
  const ReportSpectrum before = spectrum;
  capCoherence(spectrum);
  EXPECT_EQ(spectrum, before);
}

TEST(CapCoherence, EveryValueIsScaledByTheSameFactor) {
  ReportSpectrum spectrum = flat(-50);
  spectrum[3] = 250;
  capCoherence(spectrum);
  EXPECT_EQ(spectrum[3], 100);
  EXPECT_EQ(spectrum[4], -20);
}

TEST(ComputeReportSpectra, AOneBlockIntervalIsThatBlockFlooredToOneDecimal) {
  HeadlessReport program;
  for (int k = 1; k <= 64; ++k) program.shared.spectrumHistory[7][3][k] = static_cast<float>(k) + 0.27F;
  program.fillHistories(6, 6, 99);
  program.fillHistories(8, 8, 99);
  program.choose(7, 7);
  program.report.computeReportSpectra();
  for (int k = 1; k <= 64; ++k) EXPECT_EQ(program.report.meanSpectrum[3][k], static_cast<float>(k + 0.2)) << k;
  EXPECT_EQ(program.report.meanSpectrum[3][0], 0);
  EXPECT_EQ(program.report.meanSpectrum[3][65], 0);
}

TEST(ComputeReportSpectra, BothEndsOfTheIntervalCount) {
  HeadlessReport program;
  program.fillHistories(3, 3, 10, 10);
  program.fillHistories(4, 4, 20, 20);
  program.fillHistories(5, 5, 60, 60);
  program.choose(3, 5);
  program.report.computeReportSpectra();
  EXPECT_EQ(program.report.meanSpectrum[1][64], 30);
  EXPECT_EQ(program.report.coherenceSpectrum[4][1], 30);
  EXPECT_EQ(program.report.pairCoherence[2], 30);
}

TEST(ComputeReportSpectra, IndexesBeyond64AreLeftAlone) {
  HeadlessReport program;
  program.shared.spectrumHistory[1][1][65] = 500;
  program.choose(1, 1);
  program.report.computeReportSpectra();
  EXPECT_EQ(program.report.meanSpectrum[1][65], 0);
}

Fault faultOf(HeadlessReport& program) {
  try {
    program.report.computeReportSpectra();
  } catch (const RuntimeError& fault) {
    return fault.fault;
  }
  ADD_FAILURE() << "no fault";
  return Fault::input;
}

TEST(ComputeReportSpectra, IntervalsThatCannotBeAveragedAreFaults) {
  struct Case {
    int first, last;
    Fault fault;
  };
  const Case cases[] = {{10, 9, Fault::divisionByZero}, {1, 203, Fault::subscript}, {-1, 5, Fault::subscript}};
  for (const Case& c : cases) {
    HeadlessReport program;
    program.choose(c.first, c.last);
    EXPECT_EQ(faultOf(program), c.fault) << c.first << ".." << c.last;
  }
}

TEST(ComputeReportSpectra, ARecordingOf199BlocksIsAveragedToTheLast) {
  HeadlessReport program;
  program.fillHistories(1, 199, 2);
  program.fillHistories(199, 199, 201);
  program.choose(1, 199);
  program.report.computeReportSpectra();
  EXPECT_EQ(program.report.meanSpectrum[2][5], 3);
}

TEST(ComputeReportSpectra, TheHeaderNamesFileSubjectDayAndScale) {
  HeadlessReport program;
  program.fillHistories(1, 1);
  program.choose(1, 1);
  program.report.reportDate = "21/11/2026";
  program.report.microvoltScale = 30;
  program.report.computeReportSpectra();
  EXPECT_EQ(program.report.reportLines[1], "File: prova.QVD");
  EXPECT_EQ(program.report.reportLines[2], "Nome: Rossi");
  EXPECT_EQ(program.report.reportLines[3], "Data: 21/11/2026");
  EXPECT_EQ(program.report.reportLines[4], "Scala: 30 microvolts");
}

TEST(ComputeBandValues, EveryBandOfEveryChannelHasItsOwnValue) {
  HeadlessReport program;
  const IndexRange bands[] = {deltaBand, thetaBand, alphaBand, betaBand};
  for (int channel = 1; channel <= 4; ++channel)
    for (int band = 0; band < 4; ++band)
      for (int k = bands[band].first; k <= bands[band].last; ++k)
        program.report.meanSpectrum[channel][k] = static_cast<float>(10 * channel + band + (k == bands[band].last));
  program.report.computeBandValues();
  const ReportState& report = program.report;
  for (int channel = 1; channel <= 4; ++channel) {
    const std::int64_t level = 100'000 * channel;
    EXPECT_EQ(report.maxDelta[channel].count(), level + 10'000);
    EXPECT_EQ(report.maxTheta[channel].count(), level + 20'000);
    EXPECT_EQ(report.maxAlpha[channel].count(), level + 30'000);
    EXPECT_EQ(report.maxBeta[channel].count(), level + 40'000);
    EXPECT_EQ(report.meanDelta[channel].count(), level + 1'000);
    EXPECT_EQ(report.meanTheta[channel].count(), level + 11'000);
    EXPECT_EQ(report.meanAlpha[channel].count(), level + 21'000);
    EXPECT_EQ(report.meanBeta[channel].count(), level + 30'000);
  }
}

}  // namespace
}  // namespace korvinel
