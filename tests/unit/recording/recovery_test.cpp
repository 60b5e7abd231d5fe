#include "recording/recovery.h"

#include <gtest/gtest.h>

#include "platform/headless/memory_files.h"
#include "recording/side_file.h"
#include "recording/side_file_line.h"
#include "recording/temporary_reader.h"
#include "recordings.h"

namespace korvinel {
namespace {

using recordings::folder;
using recordings::temporary;

const std::string stamped = folder + "Tempor1 2026-11-21 10.00.00";

std::string ownerLine(const std::string& subject) {
  return checkedLine("\"temporaneo\",\"" + subject + "\",\"21/11/2026\",\"4canali\"");
}

/// A temporary file of Rossi's beside these files.
std::string sideFileBeside(const std::map<std::string, std::string>& others) {
  platform::MemoryFiles files;
  files.content = others;
  files.content[temporary] = "\"Rossi\",\"21/11/2026\",\"4canali\"\r\n" + recordings::block(100);
  const auto file = files.openForReading(temporary);
  return sideFileOf(files, temporary, TemporaryReader(*file));
}

TEST(SideFileOf, IsTheOneBesideTheTemporaryFileWhateverItHolds) {
  EXPECT_EQ(sideFileBeside({{folder + "Tempor1.NOT", "?"}, {stamped + ".NOT", ownerLine("Rossi")}}),
            folder + "Tempor1.NOT");
  EXPECT_EQ(sideFileBeside({}), "");
}

TEST(SideFileOf, IsTheOneThatACrashHasSetAsideWithoutItsBlocks) {
  EXPECT_EQ(sideFileBeside({{stamped + ".NOT", ownerLine("Rossi")}, {stamped + " (2).NOT", ownerLine("Verdi")}}),
            stamped + ".NOT");
}

TEST(SideFileOf, IsNobodyElsesAndNoneOfSeveral) {
  const std::string mine = ownerLine("Rossi");
  EXPECT_EQ(sideFileBeside({{stamped + ".NOT", ownerLine("Verdi")}}), "") << "another person";
  EXPECT_EQ(sideFileBeside({{stamped + ".NOT", "damaged"}}), "");
  EXPECT_EQ(sideFileBeside({{stamped + ".NOT", mine}, {stamped + ".XXX", "x"}}), "") << "it has its blocks";
  EXPECT_EQ(sideFileBeside({{stamped + ".NOT", mine}, {stamped + " (2).NOT", mine}}), "") << "which of the two?";
  EXPECT_EQ(sideFileBeside({{folder + "Altro 2026.NOT", mine}}), "");
}

TEST(BelongsTogether, AsksForTheSamePersonAndDay) {
  SideFile side;
  side.temporarySubject = side.subject = "Rossi";
  side.temporaryDate = "21/11/2026";
  EXPECT_TRUE(belongsTogether(side, "Rossi", "21/11/2026"));
  EXPECT_FALSE(belongsTogether(side, "Rossi", "20/11/2026"));
  EXPECT_FALSE(belongsTogether(side, "Verdi", "21/11/2026"));
  side.temporaryDate.clear();
  side.date = "21/11/2026";
  EXPECT_FALSE(belongsTogether(side, "Rossi", "21/11/2026")) << "the names are not known";
  side.holdsNames = true;
  EXPECT_TRUE(belongsTogether(side, "Rossi", "21/11/2026"));
}

TEST(HeadBytes, OfARecordingWithoutNotesHaveThePlaceholder) {
  FileHeader header;
  header.subject = "Rossi";
  header.date = "21/11/2026";
  EXPECT_EQ(headBytes(header), recordings::header());
}

TEST(CopyBlocks, KeepsDamagedOnesInTheirPlaceAndLeavesADeadTailOut) {
  const std::string dead(1036, '\0');
  platform::MemoryFiles files;
  files.content[temporary] = "\"Rossi\",\"21/11/2026\",\"4canali\"\r\n" + recordings::block(100) + dead +
                             recordings::block(101) + dead + "rest";
  const auto file = files.openForReading(temporary);
  TemporaryReader reader(*file);
  std::string bytes;
  const CopiedBlocks copied = copyBlocks(reader, [&](std::string_view part) { bytes += part; });
  EXPECT_TRUE(bytes == recordings::block(100) + dead + recordings::block(101));
  EXPECT_EQ(copied.blocks, 3);
  EXPECT_EQ(copied.damaged, 1);
  EXPECT_EQ(copied.left, 1040);
}

}  // namespace
}  // namespace korvinel
