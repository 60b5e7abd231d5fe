#include "recording/side_file.h"

#include <gtest/gtest.h>

#include "headless_program.h"
#include "recording/side_file_line.h"
#include "recordings.h"
#include "values/field_reader.h"

namespace korvinel {
namespace {

const std::string side = recordings::folder + "Tempor1.NOT";

SideFile readText(const std::string& text) {
  TextSource source(text);
  return readSideFile(source);
}

struct Recording : HeadlessProgram {
  explicit Recording(const std::string& subject = "Rossi") {
    startAcquisition("prova", subject);
    acquireBlocks(1);
    window.Registra.press();
    host.time.runUntil([&] { return state.recordingArmed == 0; });
    acquireBlocks(1);
  }
  void note(const std::string& text) {
    window.Annotax.press();
    window.noteBox.type(text);
    window.noteBox.pressKey(13);
  }
  std::string& bytes() { return host.files.content[side]; }
  SideFile read() { return readText(bytes()); }
};

TEST(SideFileOfARecording, HoldsNamesDateAndNotesAsTheyAreBegunAndConfirmed) {
  Recording program;
  EXPECT_EQ(program.read().noteCount, 0);
  EXPECT_EQ(program.read().dataFileName, "prova.QVD");
  program.window.Annotax.press();
  EXPECT_EQ(program.read().noteCount, 1);
  EXPECT_EQ(program.read().noteTexts[1], "");
  program.window.noteBox.type("occhi chiusi, perch\xC3\xA9");
  program.window.noteBox.pressKey(13);
  const SideFile read = program.read();
  EXPECT_EQ(read.noteCount, 1);
  EXPECT_EQ(read.noteTimes[1], 2.0F);
  EXPECT_EQ(read.noteTexts[1], program.state.noteTexts[1]);
  EXPECT_EQ(read.subject, "Rossi");
  EXPECT_EQ(read.date, "21/11/2026");
  EXPECT_EQ(read.damagedLines, 0);
}

TEST(SideFileOfARecording, HasTheSubjectAsCorrectedBeforeRegistra) {
  HeadlessProgram program;
  program.startAcquisition("prova", "Rosi");
  program.acquireBlocks(1);
  program.window.subjectBox.type("Rossi Anna");
  program.window.Registra.press();
  program.host.time.runUntil([&] { return program.state.recordingArmed == 0; });
  const SideFile read = readText(program.host.files.content[side]);
  EXPECT_EQ(read.subject, program.shared.subjectName);
  EXPECT_EQ(read.subject, "Rossi Anna");
  EXPECT_EQ(read.temporarySubject, "Rossi Anna") << "as the temporary file has it";
}

TEST(SideFileOfARecording, ForgetsTheNotesThatWereConfirmedBeforeRegistra) {
  HeadlessProgram program;
  program.startAcquisition();
  program.acquireBlocks(1);
  program.window.Annotax.press();
  program.window.noteBox.type("prima");
  program.window.noteBox.pressKey(13);
  program.window.Registra.press();
  EXPECT_EQ(readText(program.host.files.content[side]).noteCount, 1);
  program.host.time.runUntil([&] { return program.state.recordingArmed == 0; });
  EXPECT_EQ(readText(program.host.files.content[side]).noteCount, 0);
}

TEST(SideFileOfARecording, GoesWithTheTemporaryFile) {
  Recording program;
  program.note("a");
  program.window.Stopd1.press();
  program.host.time.runUntil([&] { return program.state.intervalSelectable == 1; });
  EXPECT_FALSE(program.host.files.content.contains(side));
  EXPECT_FALSE(program.host.files.content.contains(recordings::temporary));
}

TEST(SideFileOfARecording, ThatIsCutAnywhereHoldsTheFormerContentOrTheNew) {
  Recording program;
  program.note("prima");
  const std::size_t before = program.bytes().size();
  program.note("seconda");
  const std::string whole = program.bytes();
  for (std::size_t length = before; length <= whole.size(); ++length) {
    const SideFile read = readText(whole.substr(0, length));
    ASSERT_GE(read.noteCount, 1) << length;
    EXPECT_EQ(read.noteTexts[1], "prima") << length;
    if (read.noteCount == 2) {
      EXPECT_TRUE(read.noteTexts[2].empty() || read.noteTexts[2] == "seconda") << length;
    }
    EXPECT_LE(read.damagedLines, 1) << length;
  }
  EXPECT_EQ(readText(whole).noteTexts[2], "seconda");
}

TEST(SideFileOfARecording, ThatCannotBeWrittenHurtsNothingAndIsMadeGoodLater) {
  for (const int room : {0, 1, 7, 20, 40}) {
    Recording program;
    program.host.files.freeSpace = room;
    program.note("senza posto");
    EXPECT_EQ(program.state.noteTexts[1], "senza posto");
    EXPECT_TRUE(program.host.faults.empty());
    program.host.files.freeSpace = 1'000'000;
    program.note("con posto");
    const SideFile read = program.read();
    ASSERT_EQ(read.noteCount, 2) << room;
    EXPECT_EQ(read.noteTexts[1], "senza posto") << room;
    EXPECT_EQ(read.noteTexts[2], "con posto") << room;
  }
}

TEST(SideFileOfARecording, ThatHasVanishedIsWrittenWhole) {
  Recording program;
  program.note("prima");
  program.host.files.content.erase(side);
  program.note("seconda");
  EXPECT_EQ(program.read().noteTexts[1], "prima");
  EXPECT_EQ(program.read().noteTexts[2], "seconda");
}

TEST(SideFileOfARecording, OfACrashIsSetAsideWithItsTemporaryFileAndKeptFromTheNextPerson) {
  Recording program("Verdi");
  program.note("di Verdi");
  const auto left = program.host.files.content;
  Recording next;
  for (const std::string& path : {side, recordings::temporary}) next.host.files.content[path] = left.at(path);
  next.state.recordingActive = 0;
  next.window.Registra.press();
  ASSERT_FALSE(next.state.setAsidePath.empty());
  EXPECT_EQ(next.host.files.content.at(sidePathOf(next.state.setAsidePath)), left.at(side));
  EXPECT_EQ(next.read().subject, "Rossi");
  EXPECT_EQ(next.read().noteCount, 0);
}

TEST(SideFileOfARecording, WithoutItsTemporaryFileIsSetAsideToo) {
  HeadlessProgram program;
  program.host.files.content[side] = "di qualcuno";
  program.state.createTempFile();
  EXPECT_EQ(program.host.files.content.at(recordings::folder + "Tempor1 2026-11-21 10.00.00.NOT"), "di qualcuno");
}

}  // namespace
}  // namespace korvinel
