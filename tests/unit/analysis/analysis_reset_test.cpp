#include <gtest/gtest.h>

#include "headless_program.h"

namespace korvinel {
namespace {

class AnalysisReset : public testing::Test {
 protected:
  void SetUp() override {
    for (int row = 1; row <= 4; ++row)
      for (int i = 1; i <= 130; ++i) state_.runningMeanSpectrum[row][i] = state_.meanCoherence[row][i] = 9;
    for (int row = 1; row <= 4; ++row)
      for (int block = 1; block <= 202; ++block) {
        shared_.coherenceHistory[row][block] = 9;
        shared_.spectrumHistory[block][row][1] = shared_.spectrumHistory[block][row][130] = 9;
        shared_.coherenceSpectrumHistory[block][row][1] = shared_.coherenceSpectrumHistory[block][row][130] = 9;
      }
    state_.noteTimes[1] = state_.noteTimes[60] = 9;
    state_.noteTexts[1] = state_.noteTexts[60] = "occhi chiusi";
    state_.resetAnalysis();
  }

  HeadlessProgram program_;
  MainState& state_ = program_.state;
  ProgramValues& shared_ = program_.shared;
};

TEST_F(AnalysisReset, ClearsTheMeans) {
  for (int row = 1; row <= 4; ++row) {
    for (int i = 1; i <= 130; ++i) EXPECT_EQ(state_.runningMeanSpectrum[row][i], 0.0F);
    for (int i = 1; i <= 70; ++i) EXPECT_EQ(state_.meanCoherence[row][i], 0.0F);
  }
}

TEST_F(AnalysisReset, TheUpperMeanCoherenceStaysUntilTheFirstBlock) {
  for (int i = 71; i <= 130; ++i) EXPECT_EQ(state_.meanCoherence[2][i], 9.0F);
  state_.blockCount = 1;
  state_.computeCoherence();
  EXPECT_EQ(state_.meanCoherence[2][71], 100.0F);
  EXPECT_EQ(state_.meanCoherence[2][128], 100.0F);
}

TEST_F(AnalysisReset, ClearsTheHistoriesOf200Blocks) {
  for (int row = 1; row <= 4; ++row)
    for (const int block : {1, 200}) {
      EXPECT_EQ(shared_.coherenceHistory[row][block], 0.0F);
      for (const int i : {1, 130}) {
        EXPECT_EQ(shared_.spectrumHistory[block][row][i], 0.0F);
        EXPECT_EQ(shared_.coherenceSpectrumHistory[block][row][i], 0.0F);
      }
    }
  EXPECT_EQ(shared_.coherenceHistory[1][201], 9.0F);
  EXPECT_EQ(shared_.spectrumHistory[201][1][1], 9.0F);
}

TEST_F(AnalysisReset, ClearsTheNotes) {
  for (const int note : {1, 60}) {
    EXPECT_EQ(state_.noteTimes[note], 0.0F);
    EXPECT_EQ(state_.noteTexts[note], "");
  }
}

TEST(AnalysisResetAtStart, ANewAcquisitionForgetsTheOneBefore) {
  HeadlessProgram program;
  program.shared.coherenceHistory[1][150] = 50;
  program.state.runningMeanSpectrum[1][20] = 5;
  program.startAcquisition();
  EXPECT_EQ(program.shared.coherenceHistory[1][150], 0.0F);
  EXPECT_EQ(program.state.runningMeanSpectrum[1][20], 0.0F);
}

}  // namespace
}  // namespace korvinel
