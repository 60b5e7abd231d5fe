#include <gtest/gtest.h>

#include "headless_program.h"

namespace korvinel {
namespace {

using platform::Choice;

constexpr auto sevenMinutes =
    "Attenzione: per una Analisi affidabile \roccorrono almeno 7 minuti di dati eeg!\r"
    "Per analisi finale, premere Analisi";

std::string lastBox(const HeadlessProgram& program) {
  return program.host.dialogs.shown.empty() ? "" : program.host.dialogs.shown.back().text;
}

void waitForEnd(HeadlessProgram& program) {
  program.host.time.runUntil([&] { return program.state.intervalSelectable == 1; });
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

TEST(EndCommand, EndsAnIdleProgramAtOnce) {
  HeadlessProgram program;
  program.state.startUp();
  program.window.Endx1.press();
  EXPECT_TRUE(program.host.edge.ended());
  EXPECT_TRUE(program.window.firstTrace.shows("Attendere.."));
}

TEST(EndCommand, DuringAcquisitionEndsAtTheNextTickWithoutTheNotice) {
  HeadlessProgram program;
  program.startAcquisition();
  program.acquireBlocks(2);
  program.window.Endx1.press();
  EXPECT_FALSE(program.host.edge.ended());
  program.host.time.runFor(10);
  EXPECT_TRUE(program.host.edge.ended());
  EXPECT_TRUE(program.host.serialPort.written().ends_with("\xFF\x01"));
  EXPECT_TRUE(program.host.dialogs.shown.empty());
}

TEST(EndCommand, TogetherWithStopShowsTheNoticeFirst) {
  HeadlessProgram program;
  program.startAcquisition();
  program.acquireBlocks(2);
  program.window.Endx1.press();
  program.window.Stopd1.press();
  program.host.time.runFor(10);
  EXPECT_TRUE(program.host.edge.ended());
  EXPECT_EQ(lastBox(program), sevenMinutes);
}

TEST(CloseWindow, EndsAnIdleProgramAtOnce) {
  HeadlessProgram program;
  program.state.startUp();
  program.host.edge.run([&] { static_cast<void>(program.state.closeWindow()); });
  EXPECT_TRUE(program.host.edge.ended());
}

TEST(CloseWindow, WhileAcquiringStaysOpenUntilTheNextTick) {
  HeadlessProgram program;
  program.startAcquisition();
  program.acquireBlocks(2);
  bool staysOpen = false;
  program.host.edge.run([&] { staysOpen = program.state.closeWindow(); });
  EXPECT_TRUE(staysOpen);
  EXPECT_FALSE(program.host.edge.ended());
  EXPECT_TRUE(program.window.firstTrace.shows("Attendere.."));
  program.host.time.runFor(10);
  EXPECT_TRUE(program.host.edge.ended());
}

TEST(EndAcquisition, WithoutStopOrEndDoesNothingMoreThanSilenceTheInstrument) {
  HeadlessProgram program;
  program.startAcquisition();
  program.acquireBlocks(2);
  program.state.endAcquisition();
  EXPECT_FALSE(program.host.tickTimer.enabled());
  EXPECT_EQ(program.state.intervalSelectable, 0);
  EXPECT_EQ(program.state.blockCount, 2);
}

TEST(EndAcquisition, AnArmedRecordingStartsAFreshCount) {
  HeadlessProgram program;
  program.startAcquisition();
  program.acquireBlocks(2);
  program.state.recordingArmed = 1;
  program.host.time.runUntil([&] { return program.state.blockCount == 0; });
  EXPECT_EQ(program.state.recordingArmed, 0);
  EXPECT_EQ(program.state.acquisitionRunning, 1);
  program.acquireBlocks(1);
  EXPECT_EQ(program.state.blockCount, 1);
}

TEST(EndAcquisition, AnInstrumentThatIsGoneDoesNotHoldItUp) {
  HeadlessProgram program;
  program.startAcquisition();
  program.acquireBlocks(2);
  program.window.Stopd1.press();
  program.host.time.after(0.5, [&] { program.host.serialPort.unplug(); });
  program.host.dialogs.choices = {Choice::ok};
  program.host.dialogs.whileOpen = [&] { program.host.serialPort.plugIn(); };
  waitForEnd(program);
  EXPECT_EQ(lastBox(program), sevenMinutes);
}

}  // namespace
}  // namespace korvinel
