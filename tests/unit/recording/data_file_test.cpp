#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "golden_reference.h"
#include "headless_program.h"
#include "recording/side_file_line.h"
#include "recordings.h"
#include "values/runtime_error.h"

namespace korvinel {
namespace {

using recordings::folder;
using recordings::temporary;

/// A recording made block by block, without an acquisition.
struct Recording : HeadlessProgram {
  Recording() {
    shared.subjectName = "Rossi";
    shared.dataFileName = "prova.QVD";
    state.recordingDate = "21/11/2026";
    state.createTempFile();
    state.recordingActive = 1;
  }
  void append(float level) {
    state.blockCount += 1;
    for (int channel = 1; channel <= 4; ++channel)
      for (int s = 1; s <= 256; ++s) state.sampleBlock[channel][s] = level;
    state.appendBlockToTemp();
  }
  void appendBlocks(int count) {
    for (int n = 1; n <= count; ++n) append(static_cast<float>(recordings::levelOf(n)));
  }
  std::string& temporaryFile() { return host.files.content[temporary]; }
  std::string& dataFile() { return host.files.content[folder + "prova.QVD"]; }
  /// The paths of the temporary files that were set aside.
  std::vector<std::string> setAside() const {
    std::vector<std::string> paths;
    for (const auto& [path, bytes] : host.files.content)
      if (path.starts_with(folder + "Tempor1 ") && path.ends_with(".XXX")) paths.push_back(path);
    return paths;
  }
};

TEST(TemporaryFile, HoldsItsHeaderLineAndTheBlocks) {
  Recording recording;
  recording.append(101);
  recording.append(102);
  EXPECT_EQ(recording.host.files.content[temporary],
            "\"Rossi\",\"21/11/2026\",\"4canali\"\r\n" + recordings::block(101) + recordings::block(102));
}

TEST(TemporaryFile, NothingIsAppendedOrRoundedWhileRecordingIsOff) {
  Recording recording;
  recording.state.recordingActive = 0;
  recording.append(100.4F);
  EXPECT_EQ(recording.host.files.content[temporary], "\"Rossi\",\"21/11/2026\",\"4canali\"\r\n");
  EXPECT_EQ(recording.state.sampleBlock[1][1], 100.4F);
}

TEST(DataFile, OfNWholeBlocksIsHeaderAndNotesAnd1036BytesABlock) {
  for (const int blocks : {0, 1, 7, 199}) {
    Recording recording;
    recording.appendBlocks(blocks);
    recording.state.assembleDataFile();
    EXPECT_EQ(recording.dataFile().size(), recordings::header().size() + static_cast<std::size_t>(blocks) * 1036);
    EXPECT_EQ(recording.dataFile(), recordings::file(blocks));
    EXPECT_FALSE(recording.host.files.content.contains(temporary));
  }
}

TEST(DataFile, WithoutNotesHasThePlaceholderNote) {
  Recording recording;
  recording.append(100);
  recording.state.assembleDataFile();
  EXPECT_TRUE(recording.dataFile().starts_with("\"Rossi\",\"21/11/2026 V3\",\"4canali\",1\r\n1,\"Nota: \"\r\n"));
}

TEST(DataFile, WhatItHoldsIsKeptWithoutThePlaceholderNote) {
  Recording recording;
  EXPECT_FALSE(recording.state.lastRecording.made);
  recording.appendBlocks(3);
  recording.state.assembleDataFile();
  EXPECT_TRUE(recording.state.lastRecording.made);
  EXPECT_EQ(recording.state.lastRecording.blocks, 3);
  EXPECT_EQ(recording.state.lastRecording.notes, 0);
  EXPECT_EQ(recording.state.noteCount, 1);
}

TEST(DataFile, UnderAnExistingNameIsAddedBehindTheOldRecording) {
  Recording recording;
  recording.dataFile() = recordings::file(2);
  recording.append(100);
  recording.state.assembleDataFile();
  EXPECT_EQ(recording.dataFile(), recordings::file(2) + recordings::header() + recordings::block(100));
}

struct Change {
  const char* what;
  std::function<void(Recording&)> make;
  bool holdsOthers;  ///< whether it adds content that was never recorded here
};

const std::string headerOfRossi = "\"Rossi\",\"21/11/2026\",\"4canali\"\r\n";

std::string foreignBlocks() {
  std::string bytes;
  for (int n = 1; n <= 8; ++n) bytes += recordings::block(50 + n);
  return bytes;
}

const std::vector<Change>& changes() {
  static const std::vector<Change> all = {
      {"4 of 8 blocks", [](Recording& r) { r.temporaryFile().resize(headerOfRossi.size() + 4 * 1036); }, false},
      {"cut in a block", [](Recording& r) { r.temporaryFile().resize(headerOfRossi.size() + 4 * 1036 + 300); }, false},
      {"cut in the header", [](Recording& r) { r.temporaryFile().resize(5); }, false},
      {"emptied", [](Recording& r) { r.temporaryFile().clear(); }, false},
      {"8 foreign blocks", [](Recording& r) { r.temporaryFile() = headerOfRossi + foreignBlocks(); }, true},
      {"another's file",
       [](Recording& r) { r.temporaryFile() = "\"Verdi\",\"20/11/2026\",\"4canali\"\r\n" + foreignBlocks(); }, true},
      {"no header", [](Recording& r) { r.temporaryFile() = "\"altro"; }, true},
      {"one sample", [](Recording& r) { r.temporaryFile()[headerOfRossi.size() + 3 * 1036 + 500] ^= 1; }, true},
      {"a block more", [](Recording& r) { r.temporaryFile() += recordings::block(90); }, true},
      {"a piece more", [](Recording& r) { r.temporaryFile() += recordings::channelRecord(90).substr(0, 50); }, true},
      {"unreadable", [](Recording& r) { r.host.files.unreadable.push_back(temporary); }, true}};
  return all;
}

TEST(DataFile, IsMadeOfWhatWasRecordedNotOfWhatIsFound) {
  for (const auto& [what, make, holdsOthers] : changes()) {
    Recording recording;
    recording.appendBlocks(8);
    make(recording);
    const std::string found = recording.temporaryFile();
    recording.state.endRecording();
    EXPECT_TRUE(recording.dataFile() == recordings::file(8)) << what;
    ASSERT_EQ(recording.host.dialogs.shown.size(), 1U) << what;
    const std::string told = recording.host.dialogs.shown[0].text;
    EXPECT_TRUE(told.starts_with("La registrazione \xC3\xA8 completa.")) << what << told;
    EXPECT_FALSE(recording.host.files.content.contains(temporary)) << what;
    ASSERT_EQ(recording.setAside().size(), holdsOthers ? 1U : 0U) << what;
    if (!holdsOthers) continue;
    EXPECT_EQ(recording.host.files.content[recording.setAside()[0]], found) << what;
    EXPECT_NE(told.find(recording.setAside()[0]), std::string::npos) << what << told;
  }
}

TEST(DataFile, ToldHowManyBlocksTheTemporaryFileDidNotHold) {
  const std::pair<const char*, int> expected[] = {{"4 of 8 blocks", 4}, {"8 foreign blocks", 8}, {"one sample", 1},
                                                  {"a block more", 0},  {"emptied", 8},          {"cut in a block", 4}};
  for (const auto& [name, blocks] : expected)
    for (const auto& [what, make, holdsOthers] : changes()) {
      if (what != std::string(name)) continue;
      Recording recording;
      recording.appendBlocks(8);
      make(recording);
      recording.state.assembleDataFile();
      EXPECT_EQ(recording.state.blocksFromMemory, blocks) << name;
    }
}

TEST(DataFile, ChangesOfTheTemporaryFileAndAFullDiskTogetherLoseNothing) {
  for (const auto& [what, make, holdsOthers] : changes()) {
    Recording recording;
    recording.appendBlocks(8);
    const std::string recorded = recording.temporaryFile();
    make(recording);
    if (!recording.host.files.unreadable.empty()) continue;  // it would ask for another place
    recording.host.files.freeSpace = 100;
    recording.host.dialogs.whileOpen = [&] { recording.host.files.freeSpace = 100'000; };
    recording.host.dialogs.choices = {platform::Choice::ok};
    recording.host.dialogs.folders = {"/altrove/"};
    recording.state.endRecording();
    const auto& content = recording.host.files.content;
    const bool kept =
        content.contains(recording.state.setAsidePath) && content.at(recording.state.setAsidePath) == recorded;
    const bool elsewhere =
        content.contains("/altrove/prova.QVD") && content.at("/altrove/prova.QVD") == recordings::file(8);
    EXPECT_TRUE(kept || elsewhere) << what;
  }
}

TEST(DataFile, EventsAreLetInOncePerBlockWhileAssembling) {
  Recording recording;
  recording.appendBlocks(20);
  int steps = 0;
  recording.host.time.onStep = [&] { ++steps; };
  recording.state.assembleDataFile();
  EXPECT_EQ(steps, 20);
}

TEST(DataFile, IsFinishedEvenIfTheProgramEndsWhileAssembling) {
  Recording recording;
  recording.appendBlocks(20);
  recording.host.time.after(0.0005, [&] { recording.window.Endx1.press(); });
  EXPECT_THROW(recording.state.assembleDataFile(), platform::ProgramEnd);
  EXPECT_TRUE(recording.host.edge.ended());
  EXPECT_EQ(recording.dataFile(), recordings::file(20));
  EXPECT_FALSE(recording.host.files.content.contains(temporary));
}

class ReferenceRecording : public testing::TestWithParam<const char*> {};

TEST_P(ReferenceRecording, ComesOutByteForByte) {
  const auto reference = golden::reference(std::string(GetParam()) + ".json");
  Recording recording;
  const auto& screened = reference["expected"]["screened"];
  const auto& recorded = reference["expected"]["recorded"];
  for (std::size_t block = 0; block < screened.size(); ++block) {
    for (int channel = 1; channel <= 4; ++channel)
      for (int s = 1; s <= 256; ++s)
        recording.state.sampleBlock[channel][s] =
            screened[block][static_cast<std::size_t>(channel) - 1][static_cast<std::size_t>(s) - 1].get<float>();
    recording.state.appendBlockToTemp();
    golden::expectRows(recording.state.sampleBlock, recorded[block], "recorded " + std::to_string(block + 1));
  }
  for (const auto& note : reference["input"]["notes"]) {
    recording.state.noteCount += 1;
    recording.state.noteTimes[recording.state.noteCount] = note[0].get<float>();
    recording.state.noteTexts[recording.state.noteCount] = note[1].get<std::string>();
  }
  recording.state.assembleDataFile();
  EXPECT_EQ(recording.dataFile(), golden::bytesOfHex(reference["expected"]["qvd_hex"].get<std::string>()));
}

INSTANTIATE_TEST_SUITE_P(Golden, ReferenceRecording, testing::Values("eeg", "ocular", "threshold", "shapes"));

TEST(SafeKeeping, ADiskFullAtAnyByteOfABlockAndThenFreedLosesNothing) {
  for (const int room : {0, 1, 256, 258, 259, 1035}) {
    Recording recording;
    recording.append(101);
    recording.host.files.freeSpace = room;
    recording.append(102);
    EXPECT_EQ(recording.window.statusLabel.text(), "Errore di scrittura su disco!") << room;
    recording.append(103);
    recording.host.files.freeSpace = 1'000'000;
    recording.append(104);
    recording.state.assembleDataFile();
    EXPECT_EQ(recording.dataFile(), recordings::header() + recordings::block(101) + recordings::block(102) +
                                        recordings::block(103) + recordings::block(104))
        << room;
    ASSERT_EQ(recording.setAside().size(), 1U) << room;
    EXPECT_EQ(recording.host.files.content[recording.setAside().front()],
              headerOfRossi + recordings::block(101) + recordings::block(102) + recordings::block(103) +
                  recordings::block(104))
        << room;
  }
}

TEST(SafeKeeping, AFolderRemovedAndMadeAgainLosesNothing) {
  Recording recording;
  recording.append(101);
  recording.host.files.content.erase(temporary);
  recording.append(102);
  EXPECT_EQ(recording.temporaryFile(), headerOfRossi + recordings::block(101) + recordings::block(102));
  recording.state.assembleDataFile();
  EXPECT_EQ(recording.dataFile(), recordings::header() + recordings::block(101) + recordings::block(102));
}

TEST(SafeKeeping, AfterAFaultAFileWithOtherContentIsPutOutOfTheWay) {
  Recording recording;
  recording.host.files.freeSpace = 100;
  recording.append(101);
  recording.host.files.freeSpace = 1'000'000;
  recording.host.files.content[temporary] = "altro";
  recording.append(102);
  EXPECT_EQ(recording.host.files.content[temporary],
            "\"Rossi\",\"21/11/2026\",\"4canali\"\r\n" + recordings::block(101) + recordings::block(102));
  ASSERT_EQ(recording.setAside().size(), 1U);
  EXPECT_EQ(recording.host.files.content[recording.setAside().front()], "altro");
  EXPECT_TRUE(recording.host.files.content.contains(folder + "Tempor1.NOT")) << "the notes are not the other file's";
}

TEST(SafeKeeping, ADiskFullWhileAssemblingSetsTheTemporaryFileAside) {
  for (const int room : {0, 10, 60, 1000, 2100}) {
    Recording recording;
    recording.append(101);
    recording.append(102);
    const std::string recorded = recording.host.files.content[temporary];
    recording.host.files.freeSpace = room;
    recording.state.assembleDataFile();
    EXPECT_FALSE(recording.host.files.content.contains(temporary)) << room;
    ASSERT_EQ(recording.setAside(), std::vector{folder + "Tempor1 2026-11-21 10.00.00.XXX"}) << room;
    EXPECT_EQ(recording.host.files.content[recording.setAside().front()], recorded) << room;
    // Nothing was written after the gap.
    EXPECT_EQ(recording.dataFile().size(), static_cast<std::size_t>(room)) << room;
  }
}

TEST(SafeKeeping, AReadOnlyFolderAtTheEndLeavesTheTemporaryFileWhereItIs) {
  Recording recording;
  recording.append(101);
  const std::string recorded = recording.host.files.content[temporary];
  recording.host.files.readOnly = true;
  recording.state.endRecording();
  EXPECT_EQ(recording.host.files.content[temporary], recorded);
  ASSERT_EQ(recording.host.dialogs.shown.size(), 1U);
  EXPECT_NE(recording.host.dialogs.shown[0].text.find("nel file\r" + temporary), std::string::npos);
  EXPECT_EQ(recording.state.recordingActive, 0);
}

TEST(SafeKeeping, ATemporaryFileThatVanishedIsWrittenAgainFromMemoryBeforeTheDataFile) {
  Recording recording;
  recording.append(101);
  const std::string recorded = recording.temporaryFile();
  recording.host.files.content.erase(temporary);
  std::string whileAssembling;
  recording.host.time.onStep = [&] { whileAssembling = recording.temporaryFile(); };
  recording.state.assembleDataFile();
  EXPECT_EQ(whileAssembling, recorded);
  EXPECT_EQ(recording.dataFile(), recordings::header() + recordings::block(101));
  EXPECT_EQ(recording.state.blocksFromMemory, 0);
}

TEST(SafeKeeping, ATemporaryFileThatCannotBeReadLosesNothing) {
  for (const std::size_t byte : {std::size_t{5}, std::size_t{1500}}) {
    Recording recording;
    recording.append(101);
    recording.append(102);
    recording.host.files.failingAt[temporary] = byte;
    recording.state.assembleDataFile();
    EXPECT_EQ(recording.dataFile(), recordings::header() + recordings::block(101) + recordings::block(102)) << byte;
    EXPECT_EQ(recording.state.dataFileWhole, 1) << byte;
  }
}

TEST(SafeKeeping, ATemporaryFileThatVanishedIsSetAsideWholeWhereTheDataFileCannotBeMade) {
  Recording recording;
  recording.appendBlocks(3);
  const std::string recorded = recording.temporaryFile();
  recording.host.files.content.erase(temporary);
  recording.shared.dataFileName = std::string(300, 'a') + ".QVD";
  recording.state.assembleDataFile();
  ASSERT_EQ(recording.setAside().size(), 1U);
  EXPECT_EQ(recording.host.files.content[recording.setAside().front()], recorded);
  EXPECT_EQ(recording.state.setAsidePath, recording.setAside().front());
}

TEST(SafeKeeping, TheMessageNamesTheCauseThePlaceAndWhatIsMissing) {
  Recording recording;
  recording.append(101);
  recording.host.files.freeSpace = 500;
  recording.append(102);
  recording.append(103);
  recording.host.dialogs.giveRecordingsUp();
  recording.state.endRecording();
  ASSERT_EQ(recording.host.dialogs.shown.size(), 3U) << "asked for another place, and whether it is given up";
  EXPECT_EQ(recording.host.dialogs.shown[2].text,
            "Errore di scrittura durante la registrazione!\rImpossibile scrivere il file " + temporary +
                ":\rNo space left on device" + "\rI dati registrati sono conservati nel file\r" + folder +
                "Tempor1 2026-11-21 10.00.00.XXX\rNe mancano gli ultimi 6 secondi.");
}

TEST(SafeKeeping, AWholeBlockThatIsMissingCountsThreeSeconds) {
  Recording recording;
  recording.append(101);
  recording.host.files.freeSpace = 0;
  recording.append(102);
  recording.host.dialogs.giveRecordingsUp();
  recording.state.endRecording();
  EXPECT_NE(recording.host.dialogs.shown.back().text.find("\rNe mancano gli ultimi 3 secondi."), std::string::npos);
}

TEST(SafeKeeping, WithoutAFaultNoMessageIsShown) {
  Recording recording;
  recording.append(101);
  recording.state.endRecording();
  EXPECT_TRUE(recording.host.dialogs.shown.empty());
  EXPECT_TRUE(recording.setAside().empty());
}

TEST(SafeKeeping, TwoFilesSetAsideInTheSameSecondHaveDifferentNames) {
  Recording recording;
  for (int i = 1; i <= 3; ++i) {
    recording.host.files.content[temporary] = "\"R\",\"d\",\"4canali\"\r\n" + recordings::block(100);
    recording.state.createTempFile();
  }
  EXPECT_EQ(recording.setAside().size(), 3U);
}

TEST(CreateTempFile, SetsBlocksThatACrashLeftAside) {
  HeadlessProgram program;
  const std::string left = "\"Verdi\",\"20/11/2026\",\"4canali\"\r\n" + recordings::channelRecord(100);
  program.host.files.content[temporary] = left;
  program.state.createTempFile();
  EXPECT_EQ(program.host.files.content[folder + "Tempor1 2026-11-21 10.00.00.XXX"], left);
}

TEST(CreateTempFile, BringsBlocksBackToTheNotesThatACrashHasSetAsideAlone) {
  HeadlessProgram program;
  const std::string left = "\"Verdi\",\"20/11/2026\",\"4canali\"\r\n" + recordings::block(100);
  const std::string notes = folder + "Tempor1 2026-11-20 18.00.00.NOT";
  program.host.files.content[temporary] = left;
  program.host.files.content[notes] = checkedLine("\"temporaneo\",\"Verdi\",\"20/11/2026\",\"4canali\"");
  program.state.createTempFile();
  EXPECT_EQ(program.host.files.content[folder + "Tempor1 2026-11-20 18.00.00.XXX"], left);
  EXPECT_TRUE(program.host.files.exists(notes));
  EXPECT_EQ(program.state.setAsidePath, folder + "Tempor1 2026-11-20 18.00.00.XXX");
}

TEST(CreateTempFile, AHeaderWithoutBlocksIsOverwritten) {
  for (const char* left : {"", "\"Ver", "\"Verdi\",\"20/11/2026\",\"4canali\"\r\n"}) {
    HeadlessProgram program;
    program.host.files.content[temporary] = left;
    program.shared.subjectName = "Rossi";
    program.state.createTempFile();
    EXPECT_EQ(program.state.setAsidePath, "") << left;
    EXPECT_TRUE(program.host.files.content[temporary].starts_with("\"Rossi\"")) << left;
  }
}

TEST(ReadFileBlock, AnUnknownTagConsumesNothingAndKeepsTheBuffer) {
  HeadlessProgram program;
  program.host.files.content["x"] = recordings::block(100);
  program.state.readHandle = program.host.files.openForReading("x");
  program.state.fileVersionTag = "V5";
  program.state.sampleBlock[1][1] = 42;
  program.state.readFileBlock();
  EXPECT_EQ(program.state.readHandle->position(), 0);
  EXPECT_EQ(program.state.sampleBlock[1][1], 42.0F);
}

TEST(ReadFileHeader, KeepsTheDateFieldForThe50HertzLabel) {
  HeadlessProgram program;
  program.host.files.content["x"] = recordings::file(1);
  program.state.readHandle = program.host.files.openForReading("x");
  program.state.readFileHeader();
  EXPECT_EQ(program.state.headerText1, "21/11/2026 V3");
  EXPECT_EQ(program.state.fileDateField, "21/11/2026 V3");
  EXPECT_EQ(program.state.recordingDate, "21/11/2026 ");
  EXPECT_EQ(program.shared.subjectName, "Rossi");
}

TEST(ReadFileHeader, LeavesEverythingAsItWasWhereItFails) {
  HeadlessProgram program;
  program.shared.subjectName = "Bianchi";
  program.state.noteCount = 2;
  program.host.files.content["x"] = "\"Rossi\",\"21/11/2026 V3\",\"4canali\",1\r\n2,\"a";
  program.state.readHandle = program.host.files.openForReading("x");
  EXPECT_THROW(program.state.readFileHeader(), RuntimeError);
  EXPECT_EQ(program.shared.subjectName, "Bianchi");
  EXPECT_EQ(program.state.noteCount, 2);
}

}  // namespace
}  // namespace korvinel
