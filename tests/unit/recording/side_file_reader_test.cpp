#include <gtest/gtest.h>

#include "recording/side_file.h"
#include "recording/side_file_line.h"
#include "values/field_reader.h"

namespace korvinel {
namespace {

SideFile readText(const std::string& text) {
  TextSource source(text);
  return readSideFile(source);
}

TEST(SidePath, IsThatOfTheTemporaryFileWithAnotherEnding) {
  EXPECT_EQ(sidePathOf("C:\\Q\\Tempor1.XXX"), "C:\\Q\\Tempor1.NOT");
  EXPECT_EQ(sidePathOf("/a.b/Tempor1 2026-11-21 10.15.00.XXX"), "/a.b/Tempor1 2026-11-21 10.15.00.NOT");
  EXPECT_EQ(sidePathOf("/a.b/copia"), "/a.b/copia.NOT");
  EXPECT_EQ(sidePathOf("copia"), "copia.NOT");
  EXPECT_EQ(sidePathOf("copia.XXX"), "copia.NOT");
  EXPECT_EQ(sidePathOf("/a/.copia"), "/a/.copia.NOT");
}

TEST(ReadSideFile, CountsWhatIsDamagedAndKeepsTheRest) {
  const std::string owner = checkedLine("\"temporaneo\",\"Rossi\",\"21/11/2026\",\"4canali\"");
  const std::string names = checkedLine("\"nomi\",\"Rossi\",\"21/11/2026\",\"a.QVD\"");
  const std::string count = checkedLine("\"note\",2");
  const std::string first = checkedLine("\"nota\",1,2,\"a\"");
  const std::string second = checkedLine("\"nota\",2,5,\"b\"");
  for (const std::string& damage :
       {std::string("\"nota\",1,2,\"x\",1\r\n"), std::string(100, '\0') + "\r\n", std::string("\n"),
        checkedLine("\"nota\",61,2,\"x\""), checkedLine("\"nota\",1,nan,\"x\""), checkedLine("\"note\",-1")}) {
    const SideFile read = readText(owner + damage + names + count + first + second);
    EXPECT_EQ(read.damagedLines, 1);
    EXPECT_EQ(read.noteCount, 2);
    EXPECT_EQ(read.noteTexts[1] + read.noteTexts[2], "ab");
    EXPECT_EQ(read.dataFileName, "a.QVD");
  }
  const SideFile gap = readText(owner + names + count + second);
  EXPECT_EQ(gap.noteCount, 1);
  EXPECT_EQ(gap.noteTexts[1], "b");
  EXPECT_EQ(gap.notesMissing, 1);
  EXPECT_FALSE(readText("").holdsNames);
  const SideFile afterALongLine = readText(owner + std::string(1'000'000, 'x') + "\r\n" + names);
  EXPECT_EQ(afterALongLine.dataFileName, "a.QVD");
  EXPECT_GT(afterALongLine.damagedLines, 0);
}

TEST(ReadSideFile, KeepsTheNotesThatADamagedCountDoesNotCover) {
  const std::string count = checkedLine("\"note\",1"), damaged = "\"note\",2,\"?\"\r\n";
  const std::string first = checkedLine("\"nota\",1,2,\"a\""), second = checkedLine("\"nota\",2,5,\"b\"");
  const SideFile read = readText(count + first + damaged + second);
  EXPECT_EQ(read.noteCount, 2);
  EXPECT_EQ(read.noteTexts[2], "b");
  EXPECT_EQ(read.noteTimes[2], 5);
  EXPECT_EQ(read.notesMissing, 0);
}

TEST(ReadSideFile, GivesUpOnAnEndlessFileOfNothing) {
  struct Endless : ByteSource {
    int peek() override { return 0; }
    int take() override { return 0; }
  } source;
  EXPECT_EQ(readSideFile(source).damagedLines, 100);
}

}  // namespace
}  // namespace korvinel
