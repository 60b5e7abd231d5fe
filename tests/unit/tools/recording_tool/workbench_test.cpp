#include "recording_tool/workbench.h"

#include <map>

#include "platform/host_paths.h"
#include "recordings.h"
#include "tool_files.h"

namespace korvinel::tool {
namespace {

struct Scan {
  int inFile, counted, scanned;
};

TEST(Workbench, CountsOneBlockLessThanItScansUpToTheLimit) {
  const TemporaryFolder folder;
  for (const auto& [inFile, counted, scanned] :
       {Scan{1, 0, 1}, Scan{10, 9, 10}, Scan{199, 198, 199}, Scan{200, 199, 199}, Scan{250, 199, 199}}) {
    Workbench bench;
    bench.open(writeFile((folder / "a.QVD"), recordings::file(inFile)));
    EXPECT_EQ(bench.shared.fileBlockCount, counted) << inFile;
    EXPECT_EQ(bench.scannedBlocks(), scanned) << inFile;
  }
}

TEST(Workbench, RefusesAnIntervalOutsideTheRecording) {
  for (const auto& [first, last] : {std::pair{0, 5}, std::pair{1, 40}, std::pair{40, 39}}) {
    AnalysisOptions options;
    options.first = first;
    options.last = last;
    Workbench bench(options);
    bench.open(goldenPath("examination.QVD"));
    EXPECT_NE(errorOf([&] { bench.makeReport(); }), "") << first << " " << last;
  }
}

TEST(Workbench, RemovesOcularArtefactsOnRequest) {
  AnalysisOptions ocular;
  ocular.ocular = true;
  Workbench plain;
  Workbench screened(ocular);
  // A slow wave whose first half is far outside the accepted range.
  std::string block = recordings::block(128);
  for (std::size_t s = 0; s < 128; ++s) block[s] = static_cast<char>(s / 16 % 2 == 0 ? 250 : 5);
  const TemporaryFolder folder;
  const std::string path = writeFile((folder / "a.QVD"), recordings::header() + block + block);
  plain.open(path);
  screened.open(path);
  EXPECT_NE(plain.shared.spectrumHistory[1][1], screened.shared.spectrumHistory[1][1]);
}

/// Every file with the time of its last change; empty if the folder does not exist.
std::map<std::string, std::filesystem::file_time_type> filesBelow(const std::string& folder) {
  std::map<std::string, std::filesystem::file_time_type> found;
  if (std::filesystem::exists(folder))
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
      found[entry.path().string()] = entry.last_write_time();
  return found;
}

TEST(Workbench, LeavesTheUsersInstallationAlone) {
  const std::string root = platform::hostPath(platform::userDataFolder(), "C:\\QUARVEL5");
  const auto before = filesBelow(root);
  Workbench bench;
  bench.open(goldenPath("eeg.QVD"));
  bench.makeReport();
  EXPECT_EQ(filesBelow(root), before);
}

}  // namespace
}  // namespace korvinel::tool
