#include "recording_tool/batch_journal.h"

#include "recording_tool/batch.h"
#include "tool_files.h"

namespace korvinel::tool {
namespace {

TEST(BatchJournal, RowsOfNamesThatDifferInBytesThatAreNoUtf8AreNotMixedUp) {
  const TemporaryFolder folder;
  const std::string table = folder / "table.csv";
  const std::string first = writeFile(folder / "r\xE8.QVD", "same"), second = writeFile(folder / "r\xE9.QVD", "same");
  std::filesystem::last_write_time(second, std::filesystem::last_write_time(first));
  BatchOptions options;
  options.output = table;
  { BatchJournal(options).add(first, {"the row of another person\n", false}); }
  options.resume = true;
  const BatchJournal journal(options);
  ASSERT_NE(journal.rowOf(first), nullptr);
  EXPECT_EQ(journal.rowOf(second), nullptr);
}

TEST(BatchJournal, FollowsNoLinkInThePlaceOfItsUnfinishedRows) {
  const TemporaryFolder folder;
  const std::string table = folder / "table.csv";
  BatchOptions options;
  options.output = table;
  options.force = true;
  writeFile(folder / "precious", "content");
  for (const char* target : {"precious", "nowhere"}) {
    std::filesystem::remove(table + ".part");
    std::filesystem::create_symlink(folder / target, table + ".part");
    EXPECT_NE(errorOf([&] { BatchJournal{options}; }), "") << target;
  }
  EXPECT_EQ(bytesOf(folder / "precious"), "content");
  EXPECT_FALSE(std::filesystem::exists(folder / "nowhere"));
}

}  // namespace
}  // namespace korvinel::tool
