#include "recording_tool/safe_output.h"

#include "tool_files.h"

namespace korvinel::tool {
namespace {

TEST(SafeOutput, LeavesNothingBehindUnlessItIsCommitted) {
  const TemporaryFolder folder;
  {
    SafeOutput output(folder / "a", false);
    output.write("half");
    EXPECT_EQ(entriesIn(folder.path()), 1);
  }
  EXPECT_EQ(entriesIn(folder.path()), 0);
}

TEST(SafeOutput, CommitsWhatALibraryHasWrittenInItsPlace) {
  const TemporaryFolder folder;
  SafeOutput output(folder / "a", false);
  output.handOver();
  std::filesystem::remove(output.temporaryPath());
  writeFile(output.temporaryPath(), "whole");
  output.commit();
  EXPECT_EQ(bytesOf(folder / "a"), "whole");
  EXPECT_EQ(entriesIn(folder.path()), 1);
}

#ifndef _WIN32
TEST(SafeOutput, KeepsTheModeOfAFileThatItReplaces) {
  using std::filesystem::perms;
  for (const perms mode : {perms(0600), perms(0640), perms(0664)}) {
    const TemporaryFolder folder;
    std::filesystem::permissions(folder.path(), perms(0755));
    std::filesystem::permissions(writeFile(folder / "a", "before"), mode);
    SafeOutput output(folder / "a", true);
    EXPECT_EQ(std::filesystem::status(output.temporaryPath()).permissions(), mode);
    output.write("after");
    output.commit();
    EXPECT_EQ(std::filesystem::status(folder / "a").permissions(), mode);
    EXPECT_EQ(bytesOf(folder / "a"), "after");
  }
}
#endif

}  // namespace
}  // namespace korvinel::tool
