#include <gtest/gtest.h>

#include <functional>

#include "headless_program.h"
#include "recordings.h"

namespace korvinel {
namespace {

using platform::Choice;

constexpr auto sevenMinutes =
    "Attenzione: per una Analisi affidabile \roccorrono almeno 7 minuti di dati eeg!\r"
    "Per analisi finale, premere Analisi";

std::string lastBox(const HeadlessProgram& program) {
  return program.host.dialogs.shown.empty() ? "" : program.host.dialogs.shown.back().text;
}

using platform::Colour;
using platform::Mark;

const std::string startCommandBytes = "S\x01\x04\x78\x41\x08\x42\xA5";

/// Calls `act` when the program writes `bytes` to the instrument, which gets them all the same.
void whenWritten(HeadlessProgram& program, const std::string& bytes, std::function<void()> act) {
  auto& port = program.host.serialPort;
  port.onWritten = [bytes, act = std::move(act), instrument = port.onWritten](const std::string& command) {
    if (command == bytes) act();
    instrument(command);
  };
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

TEST(EndCommand, EndsAnIdleProgramAtOnce) {
  HeadlessProgram program;
  program.state.startUp();
  program.window.Endx1.press();
  EXPECT_TRUE(program.host.edge.ended());
  EXPECT_TRUE(program.window.firstTrace.shows("Attendere.."));
}

TEST(EndCommand, ClearsTheTraceAndWritesItsWordInWhite) {
  HeadlessProgram program;
  program.startAcquisition();
  program.acquireBlocks(1);
  program.window.Endx1.press();
  ASSERT_EQ(program.window.firstTrace.marks().size(), 1U);
  const Mark& word = program.window.firstTrace.marks()[0];
  EXPECT_EQ(word.text, "Attendere..");
  EXPECT_EQ(std::pair(word.x1, word.y1), std::pair(1.0, 1.0));
  EXPECT_EQ(word.colour, Colour::white);
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

TEST(CloseWindow, WhileAcquiringIsAStopAsWell) {
  HeadlessProgram program;
  program.startAcquisition();
  program.acquireBlocks(2);
  program.host.edge.run([&] { static_cast<void>(program.state.closeWindow()); });
  EXPECT_EQ(program.state.stopRequested, 1);
  EXPECT_EQ(program.state.endRequested, 1);
  program.host.time.runFor(10);
  EXPECT_EQ(lastBox(program), sevenMinutes);  // which End alone does not show
}

TEST(CloseWindow, WritesItsWordInBlackOnAWhiteBox) {
  HeadlessProgram program;
  program.startAcquisition();
  program.acquireBlocks(1);
  const std::size_t before = program.window.firstTrace.marks().size();
  program.host.edge.run([&] { static_cast<void>(program.state.closeWindow()); });
  const auto& marks = program.window.firstTrace.marks();
  ASSERT_EQ(marks.size(), before + 2);
  EXPECT_EQ(marks[before], (Mark{Mark::Kind::box, Colour::white, 1, 1, 100, 25}));
  EXPECT_EQ(marks.back().text, "Attendere..");
  EXPECT_EQ(std::pair(marks.back().x1, marks.back().y1), std::pair(1.0, 1.0));
  EXPECT_EQ(marks.back().colour, Colour::black);
}

TEST(EndCommand, TheWordsOfTheEndAreWrittenOnlyInItalian) {
  HeadlessProgram program;
  program.startAcquisition();
  program.acquireBlocks(1);
  program.shared.languageFlag = "Eng";
  const std::string status = program.window.statusLabel.text();
  program.host.edge.run([&] { static_cast<void>(program.state.closeWindow()); });
  EXPECT_EQ(program.window.firstTrace.marks().back().kind, Mark::Kind::box);
  program.window.Endx1.press();
  EXPECT_TRUE(program.window.firstTrace.marks().empty());
  program.host.time.runFor(10);
  EXPECT_TRUE(program.host.edge.ended());
  EXPECT_TRUE(program.window.firstTrace.marks().empty());
  EXPECT_EQ(program.window.statusLabel.text(), status);
}

TEST(EndAcquisition, TheEndIsWrittenInWhiteAtTheUpperLeftOfAnEmptyTrace) {
  HeadlessProgram program;
  program.startAcquisition();
  program.acquireBlocks(1);
  program.window.Stopd1.press();
  waitForEnd(program);
  ASSERT_EQ(program.window.firstTrace.marks().size(), 1U);
  const Mark& word = program.window.firstTrace.marks()[0];
  EXPECT_EQ(word.text, "Fine della registrazione!");
  EXPECT_EQ(std::pair(word.x1, word.y1), std::pair(0.0, 0.0));
  EXPECT_EQ(word.colour, Colour::white);
}

TEST(EndAcquisition, TheDataFileIsWholeBeforeTheEndIsShown) {
  HeadlessProgram program;
  program.startAcquisition();
  program.window.Registra.press();
  program.acquireBlocks(2);
  program.window.Stopd1.press();
  bool whole = false;
  program.window.firstTrace.onChanged = [&] {
    if (program.window.firstTrace.shows("Fine della registrazione!"))
      whole =
          program.state.recordingActive == 0 && program.host.files.content.contains(recordings::folder + "prova.QVD");
  };
  waitForEnd(program);
  EXPECT_TRUE(whole);
  EXPECT_TRUE(program.window.firstTrace.shows("Fine della registrazione!"));
  EXPECT_FALSE(program.window.firstTrace.shows("Attendere.."));
  EXPECT_EQ(program.window.statusLabel.text(), "Registrazione Disattiva");
  EXPECT_EQ(program.window.statusLabel.ink(), Colour::black);  // no longer the red of a recording
}

TEST(EndAcquisition, AfterAStopARecordingStillArmedStartsTheCountAnewAsTheLastStep) {
  HeadlessProgram program;
  program.startAcquisition();
  program.acquireBlocks(2);
  program.state.stopRequested = program.state.recordingArmed = 1;
  Int16 runningInTheBox = 1;
  program.host.dialogs.whileOpen = [&] { runningInTheBox = program.state.acquisitionRunning; };
  program.state.endAcquisition();
  EXPECT_EQ(lastBox(program), sevenMinutes);
  EXPECT_EQ(runningInTheBox, 0);
  EXPECT_EQ(program.state.acquisitionRunning, 1);
  EXPECT_EQ(program.state.blockCount, 0);
  EXPECT_EQ(program.state.stopRequested, 0);
  EXPECT_TRUE(program.host.tickTimer.enabled());
  EXPECT_TRUE(program.host.serialPort.written().ends_with(startCommandBytes));
}

TEST(EndAcquisition, AtTheBlockLimitTheAcquisitionIsNoLongerRunning) {
  HeadlessProgram program;
  program.startAcquisition();
  program.acquireBlocks(1);
  program.state.blockCount = 198;
  waitForEnd(program);
  EXPECT_EQ(program.state.blockCount, 200);
  EXPECT_EQ(program.state.acquisitionRunning, 0);
  EXPECT_EQ(program.shared.analysisLastBlock, 200);
  program.host.time.runFor(0.1);
  program.window.fileNameBox.type("seconda");
  program.window.Starts1.press();  // another examination may follow
  EXPECT_EQ(program.state.blockCount, 0);
}

TEST(EndAcquisition, WithoutStopOrEndDoesNothingMoreThanSilenceTheInstrument) {
  HeadlessProgram program;
  program.startAcquisition();
  program.acquireBlocks(2);
  program.host.tickTimer.setEnabled(true);  // beside the pause timer
  program.state.endAcquisition();
  EXPECT_FALSE(program.host.tickTimer.enabled());
  EXPECT_FALSE(program.host.pauseTimer.enabled());
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
