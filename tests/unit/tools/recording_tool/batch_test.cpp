#include "recording_tool/batch.h"

#include <algorithm>

#include "recording_tool/batch_journal.h"
#include "recordings.h"
#include "tool_files.h"

namespace korvinel::tool {
namespace {

class Batch : public testing::Test {
 protected:
  Batch() {
    std::filesystem::create_directory((folder_ / "shelf"));
    for (int i = 0; i < 12; ++i)
      writeFile((folder_ / "shelf/r" + std::to_string(10 + i) + ".QVD"),
                bytesOf(goldenPath(i % 2 == 0 ? "eeg.QVD" : "examination.QVD")));
  }

  int run(int jobs, bool resume = false, bool force = false) {
    BatchOptions options;
    options.output = table_;
    options.jobs = jobs;
    options.resume = resume;
    options.force = force;
    return runBatch(recordingsIn({folder_ / "shelf"}), options);
  }

  TemporaryFolder folder_;
  std::string table_ = (folder_ / "table.csv");
};

TEST_F(Batch, GivesTheSameTableWhateverTheNumberOfJobs) {
  EXPECT_EQ(run(1), 0);
  const std::string alone = bytesOf(table_);
  EXPECT_EQ(std::count(alone.begin(), alone.end(), '\n'), 13);
  EXPECT_EQ(run(4, false, true), 0);
  EXPECT_TRUE(bytesOf(table_) == alone);
}

TEST_F(Batch, ADamagedFileHasItsErrorInItsRowAndDoesNotStopTheRest) {
  writeFile((folder_ / "shelf/r115.QVD"), "no recording");
  EXPECT_EQ(run(2), 1);
  const std::string table = bytesOf(table_);
  EXPECT_EQ(std::count(table.begin(), table.end(), '\n'), 14);
  const std::size_t row = table.find("r115.QVD");
  const std::string line = table.substr(row, table.find('\n', row) - row);
  EXPECT_NE(line.find("cannot be opened"), std::string::npos) << line;
  const std::string title = batchTitle();
  EXPECT_EQ(std::count(line.begin(), line.end(), ','), std::count(title.begin(), title.end(), ','));
}

/// Leaves the files of a run interrupted in its second row.
void leaveUnfinished(const BatchOptions& options, const std::string& recording) {
  BatchJournal(options).add(recording, {"a finished row\n", false});
  std::ofstream(options.output + ".part", std::ios::app) << "[\"cut off";
}

TEST_F(Batch, ResumesWithTheRowsThatWereFinished) {
  BatchOptions options;
  options.output = table_;
  leaveUnfinished(options, folder_ / "shelf/r12.QVD");
  EXPECT_NE(errorOf([&] { run(2); }), "") << "neither --resume nor --force";
  EXPECT_EQ(run(2, true), 0);
  const std::string table = bytesOf(table_);
  EXPECT_NE(table.find("\na finished row\n"), std::string::npos);
  EXPECT_EQ(std::count(table.begin(), table.end(), '\n'), 13);
  EXPECT_FALSE(std::filesystem::exists(table_ + ".part"));
}

TEST_F(Batch, ARecordingThatWasChangedMeanwhileIsAnalysedAgain) {
  BatchOptions options;
  options.output = table_;
  leaveUnfinished(options, folder_ / "shelf/r12.QVD");
  writeFile(folder_ / "shelf/r12.QVD", recordings::file(7));
  EXPECT_EQ(run(2, true), 1) << "flat channels end the report";
  EXPECT_EQ(bytesOf(table_).find("a finished row"), std::string::npos);
}

TEST_F(Batch, IsNotResumedWithOtherOptions) {
  BatchOptions options;
  options.output = table_;
  options.analysis.ocular = true;
  leaveUnfinished(options, folder_ / "shelf/r12.QVD");
  EXPECT_NE(errorOf([&] { run(2, true); }).find("other options"), std::string::npos);
}

/// File names may contain bytes that are not UTF-8 on Linux.
TEST_F(Batch, AResumedTableEqualsAnUninterruptedOneWhateverBytesTheNamesHold) {
  std::filesystem::remove_all(folder_ / "shelf");
  std::filesystem::create_directory(folder_ / "shelf");
  writeFile(folder_ / "shelf/r\xE9.QVD", bytesOf(goldenPath("eeg.QVD")));
  writeFile(folder_ / "shelf/r\xE8\xC3.QVD", bytesOf(goldenPath("examination.QVD")));
  writeFile(folder_ / "shelf/r\xC3\xA8.QVD", "no recording");
  EXPECT_EQ(run(1), 1);
  const std::string whole = bytesOf(table_);
  EXPECT_NE(whole.find("r\xE9.QVD,"), std::string::npos);
  BatchOptions options;
  options.output = table_ + "2";
  {
    BatchJournal journal(options);
    for (const std::string& recording : recordingsIn({folder_ / "shelf"}))
      journal.add(recording, batchRow(recording, options.analysis));
  }
  options.resume = true;
  EXPECT_EQ(runBatch(recordingsIn({folder_ / "shelf"}), options), 1);
  EXPECT_TRUE(bytesOf(options.output) == whole);
}

TEST_F(Batch, ASubjectThatLooksLikeAFormulaIsAText) {
  std::string recording = recordings::file(7);
  recording.replace(recording.find("Rossi"), 5, "=cmd|'/c calc'!A1");
  writeFile(folder_ / "shelf/r10.QVD", recording);
  run(1);
  const std::string table = bytesOf(table_);
  EXPECT_NE(table.find("r10.QVD,'=cmd|'/c calc'!A1,"), std::string::npos) << table.substr(0, 2000);
}

TEST_F(Batch, FindsRecordingsInNestedFoldersInNameOrderOnce) {
  std::filesystem::create_directories((folder_ / "shelf/a/b"));
  writeFile((folder_ / "shelf/a/b/x.qvd"), "");
  writeFile((folder_ / "shelf/a/notes.txt"), "");
  const auto found = recordingsIn({(folder_ / "shelf"), (folder_ / "shelf/r10.QVD")});
  EXPECT_EQ(found.size(), 13U);
  EXPECT_TRUE(std::is_sorted(found.begin(), found.end()));
  EXPECT_NE(errorOf([&] { (void)recordingsIn({(folder_ / "nowhere")}); }), "");
}

}  // namespace
}  // namespace korvinel::tool
