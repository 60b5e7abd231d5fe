#include <gtest/gtest.h>

#include "golden_recording.h"
#include "headless_report.h"
#include "report/noise_curve.h"

/// Compares whole reports with the reference numbers, to the last bit.
namespace korvinel {
namespace {

using golden::Json;

void expectNumbers(const ReportState& report, const Json& expected) {
  golden::expectRows(report.meanSpectrum, expected.at("meanSpectrum"), "meanSpectrum");
  golden::expectRows(report.coherenceSpectrum, expected.at("coherenceSpectrum"), "coherenceSpectrum");
  golden::expectRow(report.pairCoherence, expected.at("pairCoherence"), "pairCoherence");
  golden::expectRows(report.noiseCurve, expected.at("noiseCurve"), "noiseCurve");
  for (int channel = 1; channel <= 4; ++channel)
    EXPECT_EQ(fitNoise(report.meanSpectrum[channel]).exponent,
              expected.at("noiseExponent")[static_cast<std::size_t>(channel) - 1].get<int>())
        << channel;
  const std::pair<const char*, const Bounded<Fixed, 4>*> bands[] = {
      {"maxDelta", &report.maxDelta},   {"maxTheta", &report.maxTheta},   {"maxAlpha", &report.maxAlpha},
      {"maxBeta", &report.maxBeta},     {"meanDelta", &report.meanDelta}, {"meanTheta", &report.meanTheta},
      {"meanAlpha", &report.meanAlpha}, {"meanBeta", &report.meanBeta}};
  for (const auto& [name, values] : bands) golden::expectRow(*values, expected.at(name), name);
}

void expectWords(const HeadlessReport& program, const Json& expected) {
  for (const auto& [line, text] : expected.at("reportLines").items())
    EXPECT_EQ(program.report.reportLines[std::stoi(line)], text.get<std::string>()) << "line " << line;
  golden::expectRow(program.report.commentScores, expected.at("commentScores"), "commentScores");
  const Json& comments = expected.at("commentTexts");
  ASSERT_EQ(comments.size(), 5U);
  for (int i = 1; i <= 5; ++i)
    EXPECT_EQ(program.shared.commentTexts[i], comments[static_cast<std::size_t>(i) - 1].get<std::string>()) << i;
}

void expectReport(HeadlessReport& program, const Json& expected) {
  program.openReport(expected.at("first").get<int>(), expected.at("last").get<int>());
  expectNumbers(program.report, expected);
  if (expected.contains("error")) {
    ASSERT_EQ(program.host.faults.size(), 1U);
    EXPECT_EQ(program.host.faults[0], "Divisione per zero");
    return;
  }
  program.reportWindow.commentButton.press();
  EXPECT_TRUE(program.host.faults.empty());
  expectWords(program, expected);
}

class GoldenReport : public testing::TestWithParam<const char*> {};

TEST_P(GoldenReport, EveryIntervalOfTheRecording) {
  const Json opened = golden::reference(std::string(GetParam()) + ".opened.json");
  ASSERT_GE(opened.at("reports").size(), 2U);
  for (const Json& expected : opened.at("reports")) {
    SCOPED_TRACE("blocks " + expected.at("first").dump() + " to " + expected.at("last").dump());
    HeadlessReport program;
    golden::analyseRecording(program, GetParam());
    expectReport(program, expected);
  }
}

INSTANTIATE_TEST_SUITE_P(Recordings, GoldenReport, testing::Values("eeg", "examination"),
                         [](const auto& run) { return std::string(run.param); });

}  // namespace
}  // namespace korvinel
