#include <gtest/gtest.h>

#include "golden_reference.h"
#include "head_blocks.h"
#include "headless_report.h"

/// Whole examinations of simulated subjects, from the first block to the comments.
namespace korvinel {
namespace {

using instrument::Model;

struct ReportJourney : testing::Test {
  /// Performs an examination of `count` blocks with this signal and opens its report.
  void examine(Model model, std::uint64_t seed, int count) {
    const auto source = instrument::modelSource({{model}}, seed);
    for (int block = 0; block <= count; ++block) program.host.instrument.blocks.push_back(blockOf(*source));
    program.startAcquisition();
    program.acquireBlocks(count);
    program.window.Stopd1.press();
    program.host.time.runUntil([&] { return program.state.intervalSelectable == 1; });
    program.window.Analisi.press();
  }

  HeadlessReport program;
};
// The small base comes first: the sanitizer reports a base class at an offset above one megabyte as broken.
class Seeds : public testing::WithParamInterface<std::uint64_t>, public ReportJourney {};

TEST_P(Seeds, ClosedEyesHaveExcellentAlphaEverywhere) {
  examine(Model::eyesClosed, GetParam(), 20);
  EXPECT_EQ(program.report.reportLines[6], "F1-F2 Ottimo ritmo Alfa  ");
  EXPECT_EQ(program.report.reportLines[7], "T5-T6 Ottimo ritmo Alfa  ");
  EXPECT_TRUE(program.host.faults.empty());
}

TEST_P(Seeds, OpenEyesHaveLess) {
  examine(Model::eyesOpen, GetParam(), 20);
  EXPECT_LT(program.report.commentScores[1], 3);
  EXPECT_LT(program.report.commentScores[2], 3);
  EXPECT_GT(program.report.maxDelta[1], program.report.maxAlpha[1]);
}

INSTANTIATE_TEST_SUITE_P(Heads, Seeds, testing::Values(1, 2, 3, 4));

TEST_F(ReportJourney, ClosedEyesAreCommentedAsMuchAlphaAndLittleAnxiety) {
  examine(Model::eyesClosed, 1, 20);
  program.reportWindow.commentButton.press();
  EXPECT_EQ(program.shared.commentTexts[1], "Molto alto");
  EXPECT_EQ(program.shared.commentTexts[2], "molto Basso");
}

TEST_F(ReportJourney, TheIntervalCountsTheTurnThatEndedTheAcquisition) {
  examine(Model::eyesClosed, 1, 6);
  EXPECT_EQ(program.reportWindow.intervalLabel.text(), "21s");
}

TEST_F(ReportJourney, FlatChannelsEndTheReportAndTheProgramLives) {
  examine(Model::flat, 1, 3);
  EXPECT_EQ(program.host.faults, std::vector<std::string>{"Divisione per zero"});
  EXPECT_TRUE(program.reportWindow.spectrum1.shows("F1"));
  program.window.Starts1.press();  // the program still takes commands
  EXPECT_FALSE(program.host.edge.ended());
}

TEST_F(ReportJourney, SaturatedChannelsWithoutAnAcceptedBlockHaveNoReport) {
  const auto source = instrument::modelSource({{Model::saturated}}, 1);
  for (int block = 0; block <= 5; ++block) program.host.instrument.blocks.push_back(blockOf(*source));
  program.startAcquisition();
  program.host.time.runFor(12);
  program.window.Analisi.press();
  EXPECT_EQ(program.host.dialogs.shown.back().text, "Aspettare lettura file o premere Stop!");
}

TEST_F(ReportJourney, AReportOfOneExaminationAndThenOfAnother) {
  examine(Model::eyesClosed, 1, 20);
  program.reportWindow.commentButton.press();
  program.reportWindow.exitButton.press();
  program.host.instrument.blocks.clear();
  program.window.Stopd1.press();
  examine(Model::eyesOpen, 2, 20);
  program.reportWindow.commentButton.press();
  EXPECT_NE(program.shared.commentTexts[1], "Molto alto");
}

class RecordedReport : public testing::TestWithParam<const char*> {};

TEST_P(RecordedReport, AnOpenedRecordingIsJudgedAsTheReferenceSays) {
  const std::string name = GetParam();
  HeadlessReport program;
  program.host.files.content["C:\\QUARVEL5\\Factors.val"] = golden::fileBytes(name + ".factors.val");
  program.state.startUp();
  const std::string path = "C:\\QUARVEL5\\DATAFILE\\" + name + ".QVD";
  program.host.files.content[path] = golden::fileBytes(name + ".QVD");
  program.host.dialogs.files = {path};
  program.window.Openx.press();
  program.window.Analisi.press();
  const golden::Json opened = golden::reference(name + ".opened.json");
  const golden::Json& expected = opened.at("reports")[0];
  ASSERT_EQ(program.shared.analysisLastBlock, expected.at("last").get<int>());
  for (const auto& [line, text] : expected.at("reportLines").items())
    EXPECT_EQ(program.report.reportLines[std::stoi(line)], text.get<std::string>()) << "line " << line;
  EXPECT_EQ(program.report.reportLines[1], "File: " + name + ".QVD");
  EXPECT_EQ(program.report.reportLines[2], "Nome: " + opened.at("subject").get<std::string>());
}

INSTANTIATE_TEST_SUITE_P(Recordings, RecordedReport, testing::Values("eeg", "examination"),
                         [](const auto& run) { return std::string(run.param); });

}  // namespace
}  // namespace korvinel
