#include "recording_tool/analysis_output.h"
#include "tool_files.h"

/// Compares the tool's numbers with the reference numbers, to the last bit.
namespace korvinel::tool {
namespace {

using Reference = nlohmann::json;

Reference numbersOf(const std::string& name, int first, int last) {
  AnalysisOptions options;
  options.factors = bytesOf(goldenPath(name + ".factors.val"));
  options.first = first;
  options.last = last;
  Workbench bench(options);
  bench.open(goldenPath(name + ".QVD"));
  bench.makeReport();
  return Reference::parse(textOf(analysisJson(bench)));
}

class AnalysedRecording : public testing::TestWithParam<const char*> {
 protected:
  std::string name_ = GetParam();
  Reference expected_ = Reference::parse(bytesOf(goldenPath(name_ + ".opened.json")));
};

TEST_P(AnalysedRecording, HistoriesAgreeWithTheReference) {
  const Reference actual = numbersOf(name_, 1, 1);
  int compared = 0;
  for (const auto& [key, value] : expected_.items()) {
    if (key == "reports") continue;
    ASSERT_TRUE(actual.contains(key)) << key;
    EXPECT_TRUE(actual[key] == value) << key;
    ++compared;
  }
  EXPECT_GE(compared, 6);
}

TEST_P(AnalysedRecording, EveryReportAgreesWithTheReference) {
  for (const Reference& expected : expected_["reports"]) {
    const Reference actual = numbersOf(name_, expected["first"], expected["last"])["report"];
    for (const auto& [key, value] : expected.items())
      EXPECT_TRUE(actual.contains(key) && actual[key] == value) << key << " of blocks " << expected["first"];
    EXPECT_EQ(actual.size(), expected.size());
  }
}

INSTANTIATE_TEST_SUITE_P(Recordings, AnalysedRecording, testing::Values("eeg", "examination"),
                         [](const auto& run) { return std::string(run.param); });

}  // namespace
}  // namespace korvinel::tool
