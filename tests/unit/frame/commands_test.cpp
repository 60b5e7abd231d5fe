#include <gtest/gtest.h>

#include <functional>

#include "acquisition_end.h"
#include "headless_program.h"

namespace korvinel {
namespace {

using platform::Colour;

/// Calls `act` when the program writes `bytes` to the instrument, which gets them all the same.
void whenWritten(HeadlessProgram& program, const std::string& bytes, std::function<void()> act) {
  auto& port = program.host.serialPort;
  port.onWritten = [bytes, act = std::move(act), instrument = port.onWritten](const std::string& command) {
    if (command == bytes) act();
    instrument(command);
  };
}

TEST(StartCommand, AnEmptyFileNameIsAskedForAndNothingElseChanges) {
  HeadlessProgram program;
  program.state.startUp();
  program.window.subjectBox.type("Rossi");
  program.window.noteBox.setText("nota");
  program.state.linkReady = 1;
  program.window.Starts1.press();
  EXPECT_EQ(lastBox(program), "Scrivere nome del file!");
  EXPECT_EQ(program.window.fileNameBox.focusRequests(), 2);
  EXPECT_EQ(program.window.noteBox.text(), "nota");
  EXPECT_EQ(program.state.linkReady, 1);
  EXPECT_TRUE(program.window.startPicture.visible());
  EXPECT_TRUE(program.host.serialPort.history().empty());
}

TEST(StartCommand, AnEmptySubjectIsAskedForAfterTheReset) {
  HeadlessProgram program;
  program.state.startUp();
  program.window.fileNameBox.type("prova");
  program.window.noteBox.setText("nota");
  program.state.linkReady = program.state.recordingActive = program.state.stopRequested = 1;
  program.window.Starts1.press();
  EXPECT_EQ(lastBox(program), "Scrivere nome del soggetto!");
  EXPECT_EQ(program.window.subjectBox.focusRequests(), 1);
  EXPECT_EQ(program.window.noteBox.text(), "");
  EXPECT_EQ(program.state.linkReady, 0);
  EXPECT_EQ(program.state.recordingActive, 0);
  EXPECT_EQ(program.state.stopRequested, 0);
  EXPECT_FALSE(program.window.startPicture.visible());
}

TEST(StartCommand, ALoadedFileMustBeStoppedFirst) {
  HeadlessProgram program;
  program.state.startUp();
  program.state.intervalSelectable = 1;
  program.window.Starts1.press();
  EXPECT_EQ(lastBox(program), "Premere prima Stop!");
}

TEST(StartCommand, TheChecksAreMadeOnlyInItalian) {
  HeadlessProgram program;
  program.state.startUp();
  program.shared.languageFlag = "Eng";
  program.state.intervalSelectable = 1;
  program.window.Starts1.press();
  EXPECT_TRUE(program.host.dialogs.shown.empty());
  EXPECT_EQ(program.state.acquisitionRunning, 1);
}

TEST(StartCommand, IsIgnoredWhileAcquiring) {
  HeadlessProgram program;
  program.startAcquisition();
  program.acquireBlocks(2);
  const std::string written = program.host.serialPort.written();
  program.window.fileNameBox.type("");
  program.window.Starts1.press();
  EXPECT_TRUE(program.host.dialogs.shown.empty());
  EXPECT_EQ(program.host.serialPort.written(), written);
  EXPECT_EQ(program.state.blockCount, 2);
}

TEST(StartCommand, IsIgnoredBetweenStopAndTheTurnThatEndsTheAcquisition) {
  HeadlessProgram program;
  program.startAcquisition();
  program.acquireBlocks(2);
  program.window.Stopd1.press();
  program.window.Starts1.press();
  waitForEnd(program);
  EXPECT_TRUE(program.window.firstTrace.shows("Fine della registrazione!"));
  EXPECT_EQ(program.state.acquisitionRunning, 0);
}

TEST(StartCommand, IsIgnoredBetweenEndAndTheTurnThatEndsTheProgram) {
  HeadlessProgram program;
  program.startAcquisition();
  program.acquireBlocks(2);
  program.window.Endx1.press();
  const std::string written = program.host.serialPort.written();
  program.window.Starts1.press();
  EXPECT_EQ(program.host.serialPort.written(), written);
  EXPECT_EQ(program.state.blockCount, 2);
  program.host.time.runFor(10);
  EXPECT_TRUE(program.host.edge.ended());
}

TEST(StartCommand, IsRefusedWhileEitherTimerRuns) {
  for (const bool tick : {true, false}) {
    HeadlessProgram program;
    program.state.startUp();
    program.window.fileNameBox.type("prova");
    program.window.subjectBox.type("Rossi");
    (tick ? program.host.tickTimer : program.host.pauseTimer).setEnabled(true);
    program.window.Starts1.press();
    EXPECT_EQ(program.window.statusLabel.text(), "Attendere la fine dell'acquisizione!") << tick;
    EXPECT_EQ(program.window.statusLabel.ink(), Colour::lightRed) << tick;
    EXPECT_TRUE(program.host.serialPort.history().empty()) << tick;
  }
}

TEST(StartCommand, ClearsTheTotalOfTheLastExaminationAndItsLastAnswer) {
  HeadlessProgram program;
  program.state.startUp();
  program.window.blockLabel.setText("Totale= 600s");
  program.state.messageAnswer = 2;
  program.window.fileNameBox.type("prova");
  program.window.subjectBox.type("Rossi");
  program.window.Starts1.press();
  EXPECT_EQ(program.window.blockLabel.text(), "");
  EXPECT_EQ(program.state.messageAnswer, 0);
}

TEST(StartCommand, TheGraphFramesAreDrawnBeforeTheHandshake) {
  HeadlessProgram program;
  program.state.startUp();
  program.window.fileNameBox.type("prova");
  program.window.subjectBox.type("Rossi");
  for (platform::Surface* surface : {&program.window.secondTrace, &program.window.coherenceGraph}) surface->clear();
  std::size_t marks = 0;
  std::string file;
  program.host.time.after(0.5, [&] {  // in the first wait of the handshake
    marks = std::min(program.window.secondTrace.marks().size(), program.window.coherenceGraph.marks().size());
    file = program.shared.dataFileName;
  });
  program.window.Starts1.press();
  EXPECT_GT(marks, 4U);
  EXPECT_EQ(file, "prova.QVD");
}

TEST(StartCommand, TakesTheNamesOfTheComingRecording) {
  HeadlessProgram program;
  program.startAcquisition("abc.QVD", "Nicolò Rossi");
  EXPECT_EQ(program.shared.dataFileName, "abc.QVD.QVD");
  EXPECT_EQ(program.shared.subjectName, "Nicolò Rossi");
}

TEST(StartAcquisition, CountsAfreshButKeepsThePair) {
  HeadlessProgram program;
  program.state.startUp();
  program.state.channelPair = 2;
  program.state.pairToggleCount = 3;
  program.state.blockCount = 17;
  program.state.noteCount = 4;
  program.state.sharedSelector = 3;
  program.state.startAcquisition();
  EXPECT_EQ(program.state.channelPair, 2);
  EXPECT_EQ(program.state.pairToggleCount, 0);
  EXPECT_EQ(program.state.blockCount, 0);
  EXPECT_EQ(program.state.noteCount, 0);
  EXPECT_EQ(program.state.sharedSelector, 1);
  EXPECT_TRUE(program.host.tickTimer.enabled());
}

TEST(StartCommand, ForgetsTheFileThatWasOpenAndItsNote) {
  HeadlessProgram program;
  program.state.startUp();
  program.window.fileNameBox.type("prova");
  program.window.subjectBox.type("Rossi");
  program.state.openFilePath = program.state.openFileTitle = "vecchio.QVD";
  program.state.nextFileCommand = FileCommand::replay;
  program.state.openNote = 3;
  program.state.readHandle = program.host.files.openForReading("C:\\QUARVEL5\\Factors.val");
  program.window.firstNumbers.print("Alfa=9uV");
  program.window.Starts1.press();
  EXPECT_EQ(program.state.openFilePath, "");
  EXPECT_EQ(program.state.openFileTitle, "");
  EXPECT_EQ(program.state.nextFileCommand, FileCommand::none);
  EXPECT_EQ(program.state.openNote, 0);
  EXPECT_EQ(program.state.readHandle, nullptr);
  EXPECT_TRUE(program.window.firstNumbers.marks().empty());
}

TEST(StartAcquisition, ForgetsTheLastBlockAndTheIntervalOfTheLastExamination) {
  HeadlessProgram program;
  program.state.startUp();
  program.state.artefactFlag = program.state.selectionDragging = 1;
  program.shared.analysisFirstBlock = program.shared.analysisLastBlock = 7;
  program.shared.replayStartBlock = program.shared.fileBlockCount = 7;
  program.state.startAcquisition();
  EXPECT_EQ(program.state.artefactFlag, 0);
  EXPECT_EQ(program.state.selectionDragging, 0);
  EXPECT_EQ(program.shared.analysisFirstBlock, 0);
  EXPECT_EQ(program.shared.analysisLastBlock, 0);
  EXPECT_EQ(program.shared.replayStartBlock, 0);
  EXPECT_EQ(program.shared.fileBlockCount, 0);
}

TEST(StartAcquisition, EndsTheReplayOfAnOpenedFile) {
  HeadlessProgram program;
  program.state.startUp();
  program.state.replayActive = 1;
  program.state.startAcquisition();
  EXPECT_EQ(program.state.replayActive, 0);
}

TEST(StartAcquisition, TheFirstTickIsCountedFromTheStartCommand) {
  HeadlessProgram program;
  bool ticking = true;
  whenWritten(program, startCommandBytes, [&] { ticking = program.host.tickTimer.enabled(); });
  program.startAcquisition();
  EXPECT_FALSE(ticking);
  EXPECT_TRUE(program.host.tickTimer.enabled());
}

TEST(StartAcquisition, TheRecordIsResetBeforeTheStartCommand) {
  HeadlessProgram program;
  program.state.startUp();
  program.state.blockCount = 17;
  program.shared.coherenceHistory[1][1] = 50;
  Int16 running = 0, count = 17;
  float history = 50;
  whenWritten(program, startCommandBytes, [&] {
    running = program.state.acquisitionRunning;
    count = program.state.blockCount;
    history = program.shared.coherenceHistory[1][1];
  });
  program.host.serialPort.open();
  program.state.startAcquisition();
  EXPECT_EQ(running, 1);
  EXPECT_EQ(count, 0);
  EXPECT_EQ(history, 0.0F);
}

TEST(StopCommand, EndsTheAcquisitionAtTheNextTick) {
  HeadlessProgram program;
  program.startAcquisition();
  program.acquireBlocks(4);
  program.window.Stopd1.press();
  EXPECT_EQ(program.state.acquisitionRunning, 0);
  EXPECT_FALSE(program.host.serialPort.written().ends_with("\xFF\x01"));
  waitForEnd(program);
  EXPECT_TRUE(program.host.serialPort.written().ends_with("\xFF\x01"));
  EXPECT_TRUE(program.window.firstTrace.shows("Fine della registrazione!"));
  EXPECT_EQ(program.window.statusLabel.text(), "Registrazione Disattiva");
  EXPECT_EQ(program.window.blockLabel.text(), "Totale= 15s");
  EXPECT_EQ(lastBox(program), sevenMinutes);
}

TEST(StopCommand, HandsTheBlockRangeOn) {
  HeadlessProgram program;
  program.startAcquisition();
  program.acquireBlocks(4);
  program.window.Stopd1.press();
  waitForEnd(program);
  EXPECT_EQ(program.shared.analysisFirstBlock, 1);
  EXPECT_EQ(program.shared.analysisLastBlock, 5);
  EXPECT_EQ(program.shared.replayStartBlock, 1);
  EXPECT_EQ(program.shared.fileBlockCount, 5);
}

TEST(StopCommand, TheSevenMinuteNoticeComesAfterTenMinutesToo) {
  HeadlessProgram program;
  program.startAcquisition();
  waitForEnd(program);
  EXPECT_EQ(lastBox(program), sevenMinutes);
}

TEST(StopCommand, WithNothingRunningHasNoVisibleEffect) {
  HeadlessProgram program;
  program.state.startUp();
  const auto marks = program.window.firstTrace.marks();
  program.window.Stopd1.press();
  program.host.time.runFor(10);
  EXPECT_EQ(program.window.firstTrace.marks(), marks);
  EXPECT_TRUE(program.host.dialogs.shown.empty());
}

TEST(StopCommand, DuringTheWaitForABlockEndsAtItsEnd) {
  HeadlessProgram program;
  program.startAcquisition();
  program.acquireBlocks(1);
  program.host.instrument.goSilent();
  program.host.serialPort.discardInput();
  const auto waitingForBlock = [&] { return program.state.blockCount == 2; };
  program.host.time.when(waitingForBlock, [&] {
    program.window.Stopd1.press();
    program.host.time.after(1, [&] { program.host.serialPort.deliver(std::string(1024, '\x80')); });
  });
  waitForEnd(program);
  EXPECT_EQ(lastBox(program), sevenMinutes);
}

TEST(StopCommand, AnAcquisitionCanFollowAtOnce) {
  HeadlessProgram program;
  program.startAcquisition();
  program.acquireBlocks(2);
  program.window.Stopd1.press();
  waitForEnd(program);
  program.window.fileNameBox.type("seconda");
  program.window.Starts1.press();
  EXPECT_EQ(program.state.acquisitionRunning, 1);
  program.acquireBlocks(1);
  EXPECT_EQ(program.state.blockCount, 1);
}

}  // namespace
}  // namespace korvinel
