#include <gtest/gtest.h>

#include "headless_program.h"
#include "recording/interrupted.h"
#include "recordings.h"

namespace korvinel {
namespace {

const std::string dataFile = recordings::folder + "prova.QVD";

/// A program that records an examination, and the disk as a crash would leave it.
struct InterruptedJourney : testing::Test {
  HeadlessProgram program;

  void SetUp() override {
    for (int n = 1; n <= 40; ++n)
      program.host.instrument.blocks.push_back(std::string(1024, static_cast<char>(recordings::levelOf(n))));
    program.startAcquisition("prova", "Niccolò Rossi");
    program.acquireBlocks(2);
    program.window.Registra.press();
    program.host.time.runUntil([&] { return program.state.recordingArmed == 0; });
    program.acquireBlocks(3);
    program.window.Annotax.press();
    program.window.noteBox.type("è sveglio");
    program.window.noteBox.pressKey(13);
    program.acquireBlocks(2);
  }
  void stop() {
    program.window.Stopd1.press();
    program.host.time.runUntil([&] { return program.state.intervalSelectable == 1; });
    program.host.time.runFor(0.1);
  }
};

TEST_F(InterruptedJourney, TheRecoveredFileIsTheOneThatTheProgramWouldHaveWritten) {
  platform::MemoryFiles disk;
  disk.content = program.host.files.content;
  stop();
  const std::string& written = program.host.files.content[dataFile];
  const Recovery recovery = recoverInterrupted(disk, recordings::temporary, "nota");
  EXPECT_EQ(recovery.fileName, "prova.QVD");
  EXPECT_EQ(recovery.notes, 1);
  const std::string recovered = disk.content[dataFile];
  EXPECT_GE(recovery.blocks, 5);
  EXPECT_TRUE(written.starts_with(recovered)) << "without the blocks that were still to come";
}

TEST_F(InterruptedJourney, TheNextProgramRecoversOpensAndRecordsAgain) {
  HeadlessProgram next;
  next.host.files.content = program.host.files.content;
  for (int n = 1; n <= 40; ++n) next.host.instrument.blocks.push_back(std::string(1024, '\x70'));
  next.state.startUp();
  const auto found = interruptedRecordings(next.host.files, "nota");
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found[0].subject, "Niccolò Rossi");
  ASSERT_EQ(recoverInterrupted(next.host.files, found[0].temporaryFile, "nota").outcome, RecoveryOutcome::recovered);
  next.host.dialogs.files.push_back(dataFile);
  next.window.Openx.press();
  EXPECT_EQ(next.state.noteTexts[1], "è sveglio");
  next.startAcquisition("altra", "Verdi");
  next.acquireBlocks(2);
  next.window.Registra.press();
  next.host.time.runUntil([&] { return next.state.recordingArmed == 0; });
  EXPECT_EQ(next.state.setAsidePath, "") << "nothing is left over";
}

TEST_F(InterruptedJourney, WhileTheExaminationIsUnderWayAnotherProgramIsNotOfferedIt) {
  HeadlessProgram other(&program);
  EXPECT_TRUE(interruptedRecordings(other.host.files, "nota").empty());
  EXPECT_EQ(recoverInterrupted(other.host.files, recordings::temporary, "nota").outcome, RecoveryOutcome::folderInUse);
  stop();
  EXPECT_TRUE(interruptedRecordings(other.host.files, "nota").empty()) << "it is in its data file";
}

TEST_F(InterruptedJourney, RegistraBeforeTheRecoverySetsItAsideAndItIsStillOffered) {
  HeadlessProgram next;
  next.host.files.content = program.host.files.content;
  for (int n = 1; n <= 40; ++n) next.host.instrument.blocks.push_back(std::string(1024, '\x70'));
  next.startAcquisition("altra", "Verdi");
  next.acquireBlocks(2);
  next.window.Registra.press();
  next.host.time.runUntil([&] { return next.state.recordingArmed == 0; });
  next.acquireBlocks(2);
  next.window.Stopd1.press();
  next.host.time.runUntil([&] { return next.state.intervalSelectable == 1; });
  next.host.time.runFor(0.1);
  const auto found = interruptedRecordings(next.host.files, "nota");
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found[0].temporaryFile, next.state.setAsidePath);
  EXPECT_EQ(found[0].notes, 1);
}

}  // namespace
}  // namespace korvinel
