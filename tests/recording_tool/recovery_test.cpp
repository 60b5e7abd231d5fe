#include "recording/recovery.h"

#include "recordings.h"
#include "tool_files.h"

namespace korvinel::tool {
namespace {

std::string temporaryFile(int blocks) {
  std::string bytes = "\"Rossi\",\"21/11/2026\",\"4canali\"\r\n";
  for (int n = 1; n <= blocks; ++n) bytes += recordings::block(recordings::levelOf(n));
  return bytes;
}

TEST(Recovery, KeepsEveryWholeBlockWhereverTheFileEnds) {
  const std::string whole = temporaryFile(3);
  const std::string expected = recordings::file(3);
  for (std::size_t cut = 0; cut <= 1036; cut += 7) {
    const int blocks = cut == 0 ? 3 : 2;
    const Recovered result = recoveredFrom("t", whole.substr(0, whole.size() - cut));
    EXPECT_EQ(result.blocks, cut == 1036 ? 2 : blocks) << cut;
    EXPECT_TRUE(result.dataFile == recordings::file(result.blocks)) << cut;
    EXPECT_EQ(result.bytesLeft, cut == 0 ? 0 : static_cast<int>(1036 - cut)) << cut;
  }
}

TEST(Recovery, RefusesWhatHoldsNoBlock) {
  for (const std::string& bytes :
       {std::string(), std::string("abc"), temporaryFile(0), temporaryFile(1).substr(0, 1000)})
    EXPECT_NE(errorOf([&] { (void)recoveredFrom("t", bytes); }), "") << bytes.size();
}

TEST(Recovery, LeavesTheTemporaryFileAndRefusesToReplaceIt) {
  const TemporaryFolder folder;
  const std::string temporary = writeFile((folder / "Tempor1.XXX"), temporaryFile(2));
  (void)recover(temporary, (folder / "a.QVD"), false);
  EXPECT_TRUE(bytesOf(temporary) == temporaryFile(2));
  EXPECT_NE(errorOf([&] { (void)recover(temporary, temporary, true); }), "");
  EXPECT_TRUE(bytesOf(temporary) == temporaryFile(2));
}

}  // namespace
}  // namespace korvinel::tool
