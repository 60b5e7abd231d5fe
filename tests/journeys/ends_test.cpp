#include <gtest/gtest.h>

#include <algorithm>
#include <new>

#include "opened_file.h"

/// However an examination ends, it ends when requested, its recording is saved, and the next one starts from scratch.
namespace korvinel {
namespace {

using platform::Choice;

const std::string dataFile = recordings::folder + "prova.QVD";
const std::string badBlock(1024, '\xFF');  // beyond every threshold but 130

enum class Way { end, stop, close };

void ask(HeadlessProgram& program, Way way) {
  if (way == Way::end) program.window.Endx1.press();
  if (way == Way::stop) program.window.Stopd1.press();
  if (way == Way::close) program.host.edge.run([&] { (void)program.state.closeWindow(); });
}

bool hasEnded(const HeadlessProgram& program, Way way) {
  return way == Way::stop ? program.state.intervalSelectable == 1 : program.host.edge.ended();
}

/// Records until three blocks are in the file; then every block is bad, and returns when one has been rejected.
void recordUntilABlockIsRejected(HeadlessProgram& program) {
  program.startAcquisition();
  program.acquireBlocks(1);
  program.window.Registra.press();
  program.host.time.runUntil([&] { return program.state.recordingArmed == 0; });
  program.acquireBlocks(2);
  program.state.artefactThreshold = 70;
  program.host.instrument.idleBlock = badBlock;
  program.host.time.runUntil([&] { return program.state.artefactFlag == 1; });
}

class EndOfAnExamination : public testing::TestWithParam<Way> {};

TEST_P(EndOfAnExamination, ComesWithTheNextTurnEvenIfThatBlockIsRejected) {
  HeadlessProgram program;
  recordUntilABlockIsRejected(program);
  const std::string samples = program.state.temporaryContent.substr(program.state.temporaryContent.find('\n') + 1);
  ask(program, GetParam());
  program.host.time.runFor(5);
  EXPECT_TRUE(hasEnded(program, GetParam()));
  EXPECT_EQ(program.host.files.content[dataFile], recordings::header() + samples);
  EXPECT_FALSE(program.host.files.content.contains(recordings::temporary));
}

TEST_P(EndOfAnExamination, AsksNothingMoreWhereTheInstrumentHasFallenSilent) {
  HeadlessProgram program;
  recordUntilABlockIsRejected(program);
  program.host.dialogs.shown.clear();
  ask(program, GetParam());
  program.host.serialPort.unplug();
  program.host.time.runFor(10);
  EXPECT_TRUE(hasEnded(program, GetParam()));
  EXPECT_TRUE(program.host.files.content.contains(dataFile));
  for (const auto& box : program.host.dialogs.shown) EXPECT_EQ(box.kind, "notice") << box.text;
}

int streamsStarted(const HeadlessProgram& program) {
  const auto& history = program.host.serialPort.history();
  return static_cast<int>(std::count_if(history.begin(), history.end(),
                                        [](const std::string& event) { return event.starts_with("write 83 "); }));
}

TEST_P(EndOfAnExamination, StartsNoStreamAnewWhereTheChannelsAreInDoubt) {
  HeadlessProgram program;
  program.startAcquisition();
  program.acquireBlocks(2);
  const int before = streamsStarted(program);
  ask(program, GetParam());
  program.host.serialPort.overrun();
  program.host.time.runFor(5);
  EXPECT_TRUE(hasEnded(program, GetParam()));
  EXPECT_EQ(streamsStarted(program), before);
}

INSTANTIATE_TEST_SUITE_P(Ways, EndOfAnExamination, testing::Values(Way::end, Way::stop, Way::close));

TEST(EndOfAnExamination, ABlockThatIsReadAfterEndIsStillRecorded) {
  HeadlessProgram program;
  program.startAcquisition();
  program.acquireBlocks(1);
  program.window.Registra.press();
  program.host.time.runUntil([&] { return program.state.recordingArmed == 0; });
  program.acquireBlocks(2);
  program.window.Endx1.press();
  program.host.time.runFor(5);
  EXPECT_TRUE(program.host.edge.ended());
  // The block of the turn in which "Registra" was pressed, two more, and that of the last turn.
  EXPECT_EQ(program.host.files.content[dataFile].size(), recordings::header().size() + std::size_t{4 * 1036});
}

TEST(EndOfAnExamination, EndWaitsForNoTurnThatWillNotCome) {
  for (const Way way : {Way::end, Way::close}) {
    HeadlessProgram program;
    program.state.startUp();
    program.state.acquisitionRunning = 1;
    ask(program, way);
    EXPECT_TRUE(program.host.edge.ended());
  }
}

TEST(NextExamination, CountsFromOneAfterARejectedBlock) {
  HeadlessProgram program;
  program.state.artefactThreshold = 70;
  program.host.instrument.idleBlock = badBlock;
  program.startAcquisition();
  program.state.artefactThreshold = 70;
  program.host.time.runUntil([&] { return program.state.artefactFlag == 1; });
  program.window.Stopd1.press();
  program.host.time.runFor(5);
  program.host.instrument.idleBlock = std::string(1024, '\x80');
  program.window.fileNameBox.type("seconda");
  program.window.Starts1.press();
  program.host.time.runUntil([&] { return program.host.pauseTimer.enabled(); });
  EXPECT_EQ(program.state.blockCount, 1);
  EXPECT_EQ(program.window.timeLabel.text(), "Tempo=3 secondi");
  program.window.Stopd1.press();
  program.host.time.runFor(5);
  EXPECT_EQ(program.window.blockLabel.text(), "Totale= 6s");
  program.window.Canali.press();
  EXPECT_TRUE(program.host.faults.empty());
}

TEST(NextExamination, AReplayDoesNotSayArtefactBecauseTheLastBlockWasOne) {
  HeadlessProgram program;
  recordUntilABlockIsRejected(program);
  program.window.Stopd1.press();
  program.host.time.runFor(5);
  program.host.files.content[recordings::folder + "puro.QVD"] = recordings::file(5);
  program.host.dialogs.files.push_back(recordings::folder + "puro.QVD");
  program.window.Openx.press();
  bool said = false;
  program.window.firstTrace.onChanged = [&] { said = said || program.window.firstTrace.shows("Artefatto!"); };
  program.window.Displayx.press();
  EXPECT_FALSE(said);
}

TEST(ReadError, InTheMiddleOfAScanIsToldAndLeavesTheProgramUsable) {
  const std::string bytes = recordings::file(10);
  const std::size_t samples = recordings::header().size();
  const std::pair<std::size_t, int> cases[] = {
      {samples, 0}, {samples + 100, 0}, {samples + 3 * 1036, 2}, {samples + 3 * 1036 + 500, 3}, {bytes.size(), 9}};
  for (const auto& [place, blocks] : cases) {
    FileProgram program(bytes);
    program.host.files.failingAt[program.path] = place;
    program.open();
    EXPECT_EQ(program.shared.fileBlockCount, blocks) << place;
    EXPECT_EQ(program.state.acquisitionRunning, 0);
    EXPECT_EQ(program.state.readHandle, nullptr);
    ASSERT_EQ(program.host.dialogs.shown.size(), 2U) << place;
    const std::string& told = program.host.dialogs.shown.back().text;
    EXPECT_TRUE(told.starts_with("La lettura si è fermata al blocco ")) << told;
    program.window.Stopd1.press();
    program.window.fileNameBox.type("nuovo");
    program.window.Starts1.press();
    program.acquireBlocks(1);
    EXPECT_EQ(program.state.acquisitionRunning, 1);
    program.window.Endx1.press();
    program.host.time.runFor(5);
    EXPECT_TRUE(program.host.edge.ended());
  }
}

TEST(ReadError, WhateverElseLeavesAScanTheProgramStaysUsable) {
  FileProgram program;
  program.host.time.onStep = [&] {
    program.host.instrument.deliverIfPolled();
    if (program.state.fileLoopRunning == 1 && program.state.blockCount == 3) throw std::bad_alloc();
  };
  program.open();
  EXPECT_EQ(program.host.faults.size(), 1U);
  EXPECT_EQ(program.state.acquisitionRunning, 0);
  program.window.fileNameBox.type("nuovo");
  program.window.Starts1.press();
  program.acquireBlocks(1);
  EXPECT_EQ(program.state.blockCount, 1);
}

TEST(ReadError, DuringAReplayIsToldAndLeavesTheProgramUsable) {
  FileProgram program;
  program.open();
  program.host.files.failingAt[program.path] = recordings::header().size() + 4 * 1036;
  program.window.HScroll2.moveTo(20);
  program.window.Displayx.press();
  ASSERT_EQ(program.host.faults.size(), 1U);
  EXPECT_TRUE(program.host.faults[0].starts_with("La lettura si è fermata al blocco ")) << program.host.faults[0];
  EXPECT_EQ(program.state.fileLoopRunning, 0);
  EXPECT_EQ(program.state.acquisitionRunning, 0);
}

TEST(Registra, IsRefusedWithTheReasonOnceTheDataFileOfTheLimitIsWritten) {
  HeadlessProgram program;
  program.startAcquisition();
  program.acquireBlocks(1);
  program.window.Registra.press();
  std::vector<std::string> told;
  program.host.time.when(
      [&] { return program.host.files.content.contains(dataFile) && program.state.recordingActive == 0; },
      [&] {
        program.window.Registra.press();
        for (const auto& box : program.host.dialogs.shown) told.push_back(box.text);
      });
  program.host.time.runUntil([&] { return program.state.intervalSelectable == 1; });
  program.host.time.runFor(5);
  ASSERT_EQ(told.size(), 1U);
  EXPECT_EQ(told[0], "Impossibile registrare!\rL'acquisizione sta terminando.\rLa registrazione resta disattiva.");
  EXPECT_EQ(program.state.acquisitionRunning, 0);
  EXPECT_FALSE(program.host.files.content.contains(recordings::temporary));
  EXPECT_EQ(program.host.files.content[dataFile].size(), recordings::header().size() + std::size_t{200 * 1036});
}

TEST(PrintAfterReplay, StopAndStartInItsWaitBeginAnAcquisitionThatLives) {
  FileProgram program;
  program.open();
  program.host.dialogs.choices.assign(4, Choice::ok);
  program.window.Stampa.press();
  program.host.time.after(0.1, [&] {
    ASSERT_EQ(program.host.dialogs.shown.back().title, "Stampa Immagine");
    program.window.Stopd1.press();
    program.window.fileNameBox.type("nuovo");
    program.window.Starts1.press();
  });
  program.window.Displayx.press();
  EXPECT_EQ(program.state.acquisitionRunning, 1);
  program.window.Registra.press();
  program.acquireBlocks(2);
  EXPECT_EQ(program.state.recordingActive, 1);
}

TEST(PrintAfterReplay, AnotherCommandInItsWaitFollowsItAndIsNotNestedInIt) {
  FileProgram program;
  program.open();
  program.host.dialogs.choices.assign(2, Choice::ok);  // to the print, and to the print after the replay
  program.window.Stampa.press();
  const std::string other = recordings::folder + "altro.QVD";
  program.host.files.content[other] = recordings::file(4);
  program.host.time.after(0.1, [&] {
    program.host.dialogs.files.push_back(other);
    program.window.Openx.press();
    EXPECT_NE(program.state.openFilePath, other) << "opened inside the wait";
  });
  program.window.Displayx.press();
  EXPECT_EQ(program.state.openFilePath, other);
  EXPECT_EQ(program.shared.fileBlockCount, 3);
}

TEST(Flags, FallWhateverLeavesTheOperation) {
  HeadlessProgram program;
  program.host.instrument.answer = "";
  program.host.dialogs.whileOpen = [] { throw std::bad_alloc(); };
  program.startAcquisition();
  EXPECT_EQ(program.state.linkPending, 0);
  program.host.dialogs.whileOpen = {};
  program.host.instrument.answer = "OK";
  program.window.Starts1.press();
  program.acquireBlocks(1);
  EXPECT_EQ(program.state.blockCount, 1);
}

TEST(Flags, TheNextTurnComesWhateverLeavesThisOne) {
  HeadlessProgram program;
  program.startAcquisition();
  program.acquireBlocks(1);
  bool thrown = false;
  program.host.time.onStep = [&] {
    program.host.instrument.deliverIfPolled();
    if (thrown || program.state.turnRunning == 0) return;
    thrown = true;
    throw std::bad_alloc();
  };
  program.acquireBlocks(2);
  EXPECT_TRUE(thrown);
  EXPECT_EQ(program.state.blockCount, 3);
}

TEST(Frames, LeaveTheZeroLineOfTheHandshake) {
  HeadlessProgram program;
  program.startAcquisition();
  const auto& marks = program.window.firstTrace.marks();
  const platform::Mark zeroLine{platform::Mark::Kind::line, platform::Colour::green, 1, 128, 258, 128};
  EXPECT_NE(std::find(marks.begin(), marks.end(), zeroLine), marks.end());
}

TEST(Frames, LeaveTheTracesWhereRegistraStartsAnew) {
  HeadlessProgram program;
  program.startAcquisition();
  program.acquireBlocks(2);
  program.window.Registra.press();
  program.host.time.runUntil([&] { return program.state.recordingArmed == 0; });
  EXPECT_EQ(program.state.blockCount, 0);
  for (const auto* trace : {&program.window.firstTrace, &program.window.secondTrace})
    EXPECT_EQ(std::count_if(trace->marks().begin(), trace->marks().end(),
                            [](const auto& mark) { return mark.colour == platform::Colour::lightGreen; }),
              255);
}

TEST(Refusals, SayWhatIsWaitedFor) {
  FileProgram program;
  const auto told = [&](const platform::Button& button) {
    program.host.dialogs.shown.clear();
    button.press();
    return program.host.dialogs.shown.empty() ? "" : program.host.dialogs.shown.back().text;
  };
  program.window.fileNameBox.type("nuovo");
  program.window.subjectBox.type("Bianchi");
  program.host.time.after(
      2, [&] { EXPECT_EQ(told(program.window.Openx), "Attendere il collegamento con lo strumento!"); });
  program.window.Starts1.press();
  program.acquireBlocks(2);
  EXPECT_EQ(told(program.window.Openx), "Prima premere Stop!");
  program.window.Stopd1.press();
  EXPECT_EQ(told(program.window.Openx), "Attendere la fine dell'acquisizione!");
  EXPECT_EQ(told(program.window.Analisi), "Attendere la fine dell'acquisizione!");
  EXPECT_EQ(told(program.window.Starts1), "");
  EXPECT_EQ(program.window.statusLabel.text(), "Attendere la fine dell'acquisizione!");
}

TEST(EndOfTheProgram, AfterAnExaminationThatHasEndedSendsNothingMore) {
  HeadlessProgram program;
  program.startAcquisition();
  program.acquireBlocks(1);
  program.window.Stopd1.press();
  program.host.time.runUntil([&] { return program.state.intervalSelectable == 1; });
  program.host.time.runFor(1);
  const std::string sent = program.host.serialPort.written();
  program.window.Endx1.press();
  EXPECT_TRUE(program.host.edge.ended());
  EXPECT_EQ(program.host.serialPort.written(), sent);
}

}  // namespace
}  // namespace korvinel
