#include "golden_recording.h"

namespace korvinel {
namespace {

using golden::expectRow;
using golden::expectRows;
using golden::Json;

/// A reference recording, analysed as opening a file does.
class OpenedReference : public testing::TestWithParam<const char*> {
 protected:
  void SetUp() override {
    const std::string name = GetParam();
    expected_ = golden::reference(name + ".opened.json");
    golden::analyseRecording(program_, name);
  }

  HeadlessProgram program_;
  MainState& state_ = program_.state;
  Json expected_;
};

TEST_P(OpenedReference, HistoriesAgree) {
  ASSERT_EQ(program_.shared.fileBlockCount, expected_["fileBlockCount"].get<int>());
  expectRows(program_.shared.coherenceHistory, expected_["coherenceHistory"], "coherenceHistory");
  const auto perBlock = [&](const char* name, const auto& actual) {
    if (!expected_.contains(name)) return;
    ASSERT_EQ(static_cast<int>(expected_[name].size()), state_.blockCount);
    for (int block = 1; block <= state_.blockCount; ++block)
      expectRows(actual[block], expected_[name][static_cast<std::size_t>(block) - 1],
                 name + (" of block " + std::to_string(block)));
  };
  perBlock("spectrumHistory", program_.shared.spectrumHistory);
  perBlock("coherenceSpectrumHistory", program_.shared.coherenceSpectrumHistory);
}

TEST_P(OpenedReference, MeansOverTheFileAgree) {
  state_.summariseSynchrony();
  expectRow(state_.syncAverage, expected_["syncAverage"], "syncAverage");
  if (expected_.contains("meanCoherence"))
    expectRows(state_.meanCoherence, expected_["meanCoherence"], "meanCoherence");
}

INSTANTIATE_TEST_SUITE_P(Recordings, OpenedReference, testing::Values("eeg", "examination"),
                         [](const auto& run) { return std::string(run.param); });

}  // namespace
}  // namespace korvinel
