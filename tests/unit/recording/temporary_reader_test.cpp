#include "recording/temporary_reader.h"

#include <gtest/gtest.h>

#include "platform/headless/memory_files.h"
#include "recordings.h"

namespace korvinel {
namespace {

const std::string headerLine = "\"Rossi\",\"21/11/2026\",\"4canali\"\r\n";

TemporaryKind kindOf(const std::string& bytes) {
  platform::MemoryFiles files;
  files.content["/a"] = bytes;
  const auto file = files.openForReading("/a");
  return TemporaryReader(*file).kind();
}

TEST(TemporaryReader, GivesItsBlocksUnchangedAndTheRestOfACutOne) {
  const std::string first = recordings::block(100), second = recordings::block(200);
  platform::MemoryFiles files;
  files.content["/a"] = headerLine + first + second + "rest";
  const auto file = files.openForReading("/a");
  TemporaryReader reader(*file);
  EXPECT_EQ(reader.subject(), "Rossi");
  EXPECT_EQ(reader.date(), "21/11/2026");
  EXPECT_EQ(reader.position(), static_cast<std::int64_t>(headerLine.size()));
  EXPECT_TRUE(reader.nextBlock() == first);
  EXPECT_TRUE(reader.nextBlock() == second);
  EXPECT_EQ(reader.nextBlock(), "rest");
  EXPECT_EQ(reader.nextBlock(), "");
}

TEST(TemporaryReader, KnowsATemporaryFileByItsHeaderLineAlone) {
  EXPECT_EQ(kindOf(headerLine), TemporaryKind::temporary);
  EXPECT_EQ(kindOf(recordings::file(2)), TemporaryKind::finished);
  EXPECT_EQ(kindOf(recordings::header({{2, "a"}}, "V4")), TemporaryKind::finished);
  for (const char* other : {"", "\"Rossi\"", "\"Rossi\",\"21-11-2026\",\"4canali\"\r\n", "\"Rossi\",\"21/11/2026\""})
    EXPECT_EQ(kindOf(other), TemporaryKind::other) << other;
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
}  // namespace korvinel
