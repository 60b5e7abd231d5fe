#include "golden_reference.h"
#include "headless_program.h"

namespace korvinel {
namespace {

using golden::expectRow;
using golden::expectRows;
using golden::Json;

constexpr std::size_t channelRecordBytes = 259;  // 256 samples, "-", carriage return, line feed

/// The raw area of a recording: what follows the header line and as many note lines as it says.
std::string rawArea(const std::string& file) {
  std::size_t start = file.find("\r\n") + 2;
  const std::string header = file.substr(0, start - 2);
  for (int notes = std::stoi(header.substr(header.rfind(',') + 1)); notes > 0; --notes)
    start = file.find("\r\n", start) + 2;
  return file.substr(start);
}

/// A recording analysed in the order of opening a file.
class OpenedReference : public testing::TestWithParam<const char*> {
 protected:
  void SetUp() override {
    const std::string name = GetParam();
    expected_ = golden::reference(name + ".opened.json");
    program_.host.files.content["C:\\QUARVEL5\\Factors.val"] = golden::fileBytes(name + ".factors.val");
    state_.startUp();
    state_.openFilePath = "C:\\QUARVEL5\\DATAFILE\\" + name + ".QVD";
    state_.resetAnalysis();
    analyseAll(rawArea(golden::fileBytes(name + ".QVD")));
    program_.shared.fileBlockCount = state_.blockCount - 1;
  }

  void analyseAll(const std::string& raw) {
    ASSERT_GE(raw.size(), 4 * channelRecordBytes);
    for (std::size_t start = 0; start + 4 * channelRecordBytes <= raw.size(); start += 4 * channelRecordBytes) {
      state_.blockCount += 1;
      for (int channel = 1; channel <= 4; ++channel)
        for (int s = 1; s <= 256; ++s)
          state_.sampleBlock[channel][s] =
              static_cast<unsigned char>(raw[start + static_cast<std::size_t>(channel - 1) * channelRecordBytes +
                                             static_cast<std::size_t>(s - 1)]);
      state_.computeComplexSpectra();
      state_.lowPassBlock();
      state_.removeOcularArtefacts();
      state_.analyseBlockSpectra();
      state_.computeBlockCorrelation();
      state_.computeCoherence();
    }
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
