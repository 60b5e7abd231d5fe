#include "recording_tool/temporary_reader.h"

#include "recordings.h"
#include "tool_files.h"

namespace korvinel::tool {
namespace {

const std::string headerLine = "\"Rossi\",\"21/11/2026\",\"4canali\"\r\n";

TEST(TemporaryReader, GivesItsBlocksUnchangedAndTheRestOfACutOne) {
  const TemporaryFolder folder;
  const std::string first = recordings::block(100), second = recordings::block(200);
  TemporaryReader reader(writeFile(folder / "a", headerLine + first + second + "rest"));
  EXPECT_EQ(reader.subject(), "Rossi");
  EXPECT_EQ(reader.date(), "21/11/2026");
  EXPECT_EQ(reader.position(), static_cast<std::int64_t>(headerLine.size()));
  EXPECT_TRUE(reader.nextBlock() == first);
  EXPECT_TRUE(reader.nextBlock() == second);
  EXPECT_EQ(reader.nextBlock(), "rest");
  EXPECT_EQ(reader.nextBlock(), "");
}

TEST(TemporaryReader, KnowsATemporaryFileByItsHeaderLineAlone) {
  const TemporaryFolder folder;
  EXPECT_EQ(errorOf([&] { TemporaryReader(writeFile(folder / "photo.jpg", headerLine)); }), "");
  for (const std::string& bytes : {std::string(), std::string("\"Rossi\""), recordings::file(2)})
    EXPECT_NE(errorOf([&] { TemporaryReader(writeFile(folder / "Tempor1.XXX", bytes)); }), "") << bytes.substr(0, 40);
}

TEST(IsSound, AskForRecordEndsInTheirPlacesAndNoShunnedByte) {
  const std::string whole = recordings::block(100);
  EXPECT_TRUE(isSound(whole));
  for (const char shunned : {'\x1A', '\n', '\t'}) {
    std::string damaged = whole;
    damaged[300] = shunned;
    EXPECT_FALSE(isSound(damaged)) << static_cast<int>(shunned);
  }
  for (const std::size_t place : {256U, 257U, 1035U}) {
    std::string damaged = whole;
    damaged[place] = 'x';
    EXPECT_FALSE(isSound(damaged)) << place;
  }
}

}  // namespace
}  // namespace korvinel::tool
