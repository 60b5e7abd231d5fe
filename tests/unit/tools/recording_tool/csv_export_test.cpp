#include "recording_tool/csv_export.h"

#include <sstream>

#include "recordings.h"
#include "tool_files.h"

namespace korvinel::tool {
namespace {

std::vector<std::string> linesOf(const std::string& path) {
  std::istringstream text(bytesOf(path));
  std::vector<std::string> lines;
  for (std::string line; std::getline(text, line);) lines.push_back(line);
  return lines;
}

TEST(CsvExport, HasALineForEachSampleWithItsTimeAndTheNotesAtTheirBlocks) {
  const TemporaryFolder folder;
  const std::string recording =
      writeFile(folder / "a.QVD", recordings::file(2, {{2, "occhi"}, {2, "chiusi"}, {1, "Nota: "}}));
  exportCsv(recording, folder / "a.csv", {});
  const auto lines = linesOf(folder / "a.csv");
  ASSERT_EQ(lines.size(), 513U);
  EXPECT_EQ(lines[0], "block,seconds,F1,F2,T5,T6,note");
  EXPECT_EQ(lines[1], "1,0,-27,-27,-27,-27,");
  EXPECT_EQ(lines[2], "1,0.0078125,-27,-27,-27,-27,");
  EXPECT_EQ(lines[257], "2,3,-26,-26,-26,-26,occhi; chiusi");
  EXPECT_EQ(lines[512], "2,4.9921875,-26,-26,-26,-26,");
}

TEST(CsvExport, ARecordingWithoutSamplesLeavesNothing) {
  const TemporaryFolder folder;
  const std::string recording = writeFile(folder / "a.QVD", recordings::header());
  EXPECT_NE(errorOf([&] { exportCsv(recording, folder / "a.csv", {}); }).find("no samples"), std::string::npos);
  EXPECT_EQ(entriesIn(folder.path()), 1);
}

TEST(CsvExport, AnExistingFileStaysWithoutForce) {
  const TemporaryFolder folder;
  const std::string recording = writeFile(folder / "a.QVD", recordings::file(1));
  const std::string csv = writeFile(folder / "a.csv", "old");
  EXPECT_NE(errorOf([&] { exportCsv(recording, csv, {}); }), "");
  EXPECT_EQ(bytesOf(csv), "old");
  exportCsv(recording, csv, {.force = true});
  EXPECT_EQ(linesOf(csv).size(), 257U);
}

}  // namespace
}  // namespace korvinel::tool
