#include "recording/interrupted.h"

#include <gtest/gtest.h>

#include <limits>

#include "platform/headless/memory_files.h"
#include "recording/data_paths.h"
#include "recording/side_file_line.h"
#include "recordings.h"
#include "reliability/dying_files.h"

namespace korvinel {
namespace {

using platform::MemoryFiles;
using recordings::folder;
using recordings::temporary;

const std::string side = folder + "Tempor1.NOT";
const std::string stamped = folder + "Tempor1 2026-11-20 18.00.00";
const std::string headerLine = "\"Rossi\",\"21/11/2026\",\"4canali\"\r\n";

std::string temporaryBytes(int blocks) {
  std::string bytes = headerLine;
  for (int n = 1; n <= blocks; ++n) bytes += recordings::block(recordings::levelOf(n));
  return bytes;
}

std::string sideBytes(const std::string& name = "uno.QVD") {
  return checkedLine("\"temporaneo\",\"Rossi\",\"21/11/2026\",\"4canali\"") +
         checkedLine("\"nomi\",\"Rossi Anna\",\"21/11/2026\",\"" + name + "\"") + checkedLine("\"note\",1") +
         checkedLine("\"nota\",1,2,\"occhi chiusi\"");
}

/// The data file of an examination of three blocks.
std::string wholeFile() {
  return "\"Rossi Anna\",\"21/11/2026 V3\",\"4canali\",1\r\n2,\"occhi chiusi\"\r\n" +
         temporaryBytes(3).substr(headerLine.size());
}

/// A disk after a crash in the fourth block.
struct AfterACrash : MemoryFiles {
  AfterACrash() {
    content = {{temporary, temporaryBytes(4).substr(0, temporaryBytes(4).size() - 10)}, {side, sideBytes()}};
  }
  std::vector<Interrupted> found() { return interruptedRecordings(*this, "nota"); }
  Recovery recovered(const std::string& path = temporary) { return recoverInterrupted(*this, path, "nota"); }
};

TEST(InterruptedRecordings, SayWhoWhenHowLongAndHowManyNotes) {
  AfterACrash disk;
  const auto found = disk.found();
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found[0].temporaryFile, temporary);
  EXPECT_EQ(found[0].sideFile, side);
  EXPECT_EQ(found[0].subject, "Rossi Anna");
  EXPECT_EQ(found[0].date, "21/11/2026");
  EXPECT_EQ(found[0].dataFileName, "uno.QVD");
  EXPECT_EQ(found[0].blocks, 3);
  EXPECT_EQ(found[0].notes, 1);
  EXPECT_FALSE(found[0].notesAreDamaged);
}

TEST(InterruptedRecordings, AreNoneWhereNothingCanBeRecovered) {
  MemoryFiles empty;
  EXPECT_TRUE(interruptedRecordings(empty, "nota").empty());
  EXPECT_TRUE(empty.content.empty()) << "no lock file either";
  for (const std::string& bytes : {std::string(), headerLine, temporaryBytes(1).substr(0, 500), recordings::file(3)}) {
    AfterACrash disk;
    disk.content[temporary] = bytes;
    EXPECT_TRUE(disk.found().empty()) << bytes.size();
  }
  AfterACrash unreadable;
  unreadable.unreadable = {temporary};
  EXPECT_TRUE(unreadable.found().empty());
}

TEST(InterruptedRecordings, ThoseSetAsideFollowTheLatestFirst) {
  AfterACrash disk;
  disk.content[stamped + ".XXX"] = temporaryBytes(1);
  disk.content[stamped + " (2).XXX"] = temporaryBytes(2);
  disk.content[folder + "Altro.XXX"] = temporaryBytes(2);
  const auto found = disk.found();
  ASSERT_EQ(found.size(), 3U);
  EXPECT_EQ(found[0].temporaryFile, temporary);
  EXPECT_EQ(found[1].temporaryFile, stamped + ".XXX");
  EXPECT_EQ(found[2].temporaryFile, stamped + " (2).XXX");
  EXPECT_EQ(found[1].dataFileName, "");
}

TEST(InterruptedRecordings, OfAnExaminationUnderWayIsNotOffered) {
  AfterACrash disk;
  disk.content[stamped + ".XXX"] = temporaryBytes(1);
  {
    const auto other = disk.lock(folderLockPath, "altro programma");
    ASSERT_EQ(disk.found().size(), 1U);
    EXPECT_EQ(disk.found()[0].temporaryFile, stamped + ".XXX");
    for (const std::string& path : {temporary, stamped + ".XXX"})
      EXPECT_EQ(disk.recovered(path).outcome, RecoveryOutcome::folderInUse);
  }
  EXPECT_EQ(disk.found().size(), 2U);
  disk.offersLocks = false;
  EXPECT_EQ(disk.found().size(), 1U) << "nobody knows whether it is being recorded into";
  EXPECT_EQ(disk.recovered().outcome, RecoveryOutcome::notReservable);
}

TEST(InterruptedRecordings, AlreadyInADataFileIsNotOffered) {
  for (const char* name : {"uno.QVD", "uno (2).QVD", "UNO.qvd"}) {
    AfterACrash disk;
    disk.content[folder + name] = wholeFile();
    EXPECT_TRUE(disk.found().empty()) << name;
    disk.content[folder + name].pop_back();
    EXPECT_EQ(disk.found().size(), 1U) << name << ": its end is missing";
    disk.content[folder + name] = wholeFile() + recordings::block(100);
    EXPECT_EQ(disk.found().size(), 1U) << name << ": another examination";
  }
}

TEST(RecoverInterrupted, MakesTheDataFileAndRemovesWhatIsRecovered) {
  AfterACrash disk;
  const Recovery recovery = disk.recovered();
  EXPECT_EQ(recovery.outcome, RecoveryOutcome::recovered);
  EXPECT_EQ(recovery.fileName, "uno.QVD");
  EXPECT_EQ(recovery.blocks, 3);
  EXPECT_EQ(recovery.notes, 1);
  EXPECT_TRUE(disk.content[folder + "uno.QVD"] == wholeFile());
  EXPECT_EQ(disk.content.size(), 2U) << "the data file and the lock";
  EXPECT_EQ(disk.recovered().outcome, RecoveryOutcome::nothingToMake);
}

TEST(RecoverInterrupted, TakesAFreeNameAndLeavesTheOtherFileAlone) {
  AfterACrash disk;
  disk.content[folder + "UNO.qvd"] = "altro";
  EXPECT_EQ(disk.recovered().fileName, "uno (2).QVD");
  EXPECT_EQ(disk.content[folder + "UNO.qvd"], "altro");
}

TEST(RecoverInterrupted, GivesANameWhereItsOwnIsUnknownOrImpossible) {
  for (const char* name : {"", ".QVD", "../uno.QVD", ".uno.QVD", "uno.TXT", "COM1.QVD"}) {
    AfterACrash disk;
    disk.devices = {"COM1"};
    disk.content[side] = sideBytes(name);
    EXPECT_EQ(disk.recovered().fileName, "Esame recuperato 2026-11-21.QVD") << name;
  }
  AfterACrash withoutNotes;
  withoutNotes.content.erase(side);
  EXPECT_EQ(withoutNotes.recovered().fileName, "Esame recuperato 2026-11-21.QVD");
}

TEST(RecoverInterrupted, LeavesAnotherPersonsNotesAlone) {
  AfterACrash disk;
  const std::string others = checkedLine("\"temporaneo\",\"Verdi\",\"21/11/2026\",\"4canali\"");
  disk.content[side] = others;
  EXPECT_EQ(disk.recovered().notes, 0);
  EXPECT_EQ(disk.content[side], others);
}

TEST(RecoverInterrupted, OnAFullOrBadDiskKeepsEverything) {
  for (std::int64_t room = 0; room < static_cast<std::int64_t>(wholeFile().size()); room += 97) {
    AfterACrash disk;
    disk.content[folderLockPath];
    const auto before = disk.content;
    disk.freeSpace = room;
    const Recovery recovery = disk.recovered();
    EXPECT_EQ(recovery.outcome, RecoveryOutcome::failed);
    ASSERT_TRUE(recovery.fault);
    EXPECT_EQ(recovery.fault->cause, Cause::notWritable);
    EXPECT_TRUE(disk.content == before) << room;
  }
  AfterACrash disk;
  disk.content[folderLockPath];
  const auto before = disk.content;
  disk.failingAt[temporary] = 1500;
  EXPECT_EQ(disk.recovered().fault->cause, Cause::notReadable);
  EXPECT_TRUE(disk.content == before);
  disk.failingAt.clear();
  disk.readOnly = true;
  EXPECT_EQ(disk.recovered().outcome, RecoveryOutcome::failed);
  EXPECT_TRUE(disk.content == before);
}

struct Crash {};

/// The program is killed, or the machine loses power, after each step of a recovery; then it is started again.
TEST(RecoverInterrupted, ThatIsItselfInterruptedLosesNothing) {
  for (const bool powerFails : {false, true}) {
    for (int last = 0;; ++last) {
      AfterACrash disk;
      DyingFiles dying(disk, last, [] { throw Crash{}; });
      bool finished = true;
      try {
        (void)recoverInterrupted(dying, temporary, "nota");
      } catch (const Crash&) {
        finished = false;
      }
      campaign::Dice dice(static_cast<unsigned>(last));
      if (powerFails) dying.losePower(dice);
      for (const Interrupted& each : disk.found()) (void)disk.recovered(each.temporaryFile);
      EXPECT_TRUE(disk.content[folder + "uno.QVD"] == wholeFile()) << last << powerFails;
      EXPECT_FALSE(disk.exists(folder + "uno (2).QVD")) << last << powerFails;
      if (finished) break;
    }
  }
}

}  // namespace
}  // namespace korvinel
