#include <gtest/gtest.h>

#include "headless_program.h"
#include "recordings.h"

namespace korvinel {
namespace {

const std::string stop = "write 255 1";

/// A program that can receive a signal at any moment; it is handled between two events, wherever the program waits.
struct SignalledProgram : HeadlessProgram {
  SignalledProgram() {
    for (int n = 1; n <= 100; ++n)
      host.instrument.blocks.push_back(std::string(1024, static_cast<char>(recordings::levelOf(n))));
  }
  void signal() {
    host.edge.run([this] { state.endWithoutAsking(); });
  }
  void writeNote(const std::string& text) {
    window.Annotax.press();
    window.noteBox.type(text);
    window.noteBox.pressKey(13);
  }
  /// Records three blocks and two notes.
  void record() {
    startAcquisition();
    acquireBlocks(1);
    window.Registra.press();
    host.time.runUntil([&] { return state.recordingArmed == 0; });
    writeNote("prima");
    acquireBlocks(2);
    writeNote("seconda");
  }
  bool hasStopped() const { return !host.serialPort.history().empty() && host.serialPort.history().back() == stop; }
  std::string dataFile() { return host.files.content[recordings::folder + "prova.QVD"]; }
  void expectHome(int blocks) {
    EXPECT_TRUE(host.edge.ended());
    EXPECT_EQ(dataFile().size(),
              recordings::header({{2, "prima"}, {2, "seconda"}}).size() + static_cast<std::size_t>(blocks) * 1036);
    EXPECT_NE(dataFile().find("\"prima\"\r\n"), std::string::npos);
    EXPECT_NE(dataFile().find("\"seconda\"\r\n"), std::string::npos);
    EXPECT_FALSE(host.files.content.contains(recordings::temporary));
  }
};

TEST(SuddenEnd, BringsARecordingHomeAtOnceAndStopsTheStream) {
  SignalledProgram program;
  program.record();
  const double before = program.host.time.seconds();
  program.signal();
  program.expectHome(3);
  EXPECT_TRUE(program.hasStopped());
  EXPECT_TRUE(program.host.dialogs.shown.empty());
  EXPECT_EQ(program.host.time.seconds(), before);
}

TEST(SuddenEnd, WhileABlockIsAwaitedInATurn) {
  SignalledProgram program;
  program.record();
  program.host.instrument.goSilent();
  program.host.time.when([&] { return program.state.turnRunning == 1; }, [&] { program.signal(); });
  program.host.time.runFor(10);
  program.expectHome(3);
  EXPECT_TRUE(program.hasStopped());
  EXPECT_TRUE(program.host.dialogs.shown.empty());
}

TEST(SuddenEnd, WhileABoxIsOpenWhateverItsAnswerWouldBe) {
  for (const auto answer : {platform::Choice::ok, platform::Choice::cancel}) {
    SignalledProgram program;
    program.record();
    program.host.instrument.goSilent();  // "Errore di comunicazione!"
    program.host.dialogs.choices = {answer};
    program.host.dialogs.whileOpen = [&] { program.signal(); };
    program.host.time.runFor(60);
    program.expectHome(4);  // including the block that was waiting
    EXPECT_EQ(program.host.dialogs.shown.size(), 1U);
  }
}

TEST(SuddenEnd, WhileTheFileIsBeingWritten) {
  SignalledProgram program;
  program.record();
  program.host.time.when([&] { return program.state.assembling == 1; },
                         [&] {
                           program.signal();
                           program.signal();
                         });
  program.window.Stopd1.press();
  program.host.time.runFor(20);
  program.expectHome(3);
  EXPECT_TRUE(program.host.dialogs.shown.empty());
}

TEST(SuddenEnd, InTheHandshake) {
  SignalledProgram program;
  program.host.time.when([&] { return program.state.linkPending == 1; }, [&] { program.signal(); });
  program.startAcquisition();
  EXPECT_TRUE(program.host.edge.ended());
  EXPECT_TRUE(program.host.dialogs.shown.empty());
}

TEST(SuddenEnd, WhileAFileIsBeingReadOrReplayed) {
  for (const bool replays : {false, true}) {
    SignalledProgram program;
    program.host.files.content[recordings::folder + "altro.QVD"] = recordings::file(20);
    program.state.startUp();
    program.host.dialogs.files.push_back(recordings::folder + "altro.QVD");
    if (replays) program.window.Openx.press();
    program.host.time.when([&] { return program.state.fileLoopRunning == 1; }, [&] { program.signal(); });
    replays ? program.window.Displayx.press() : program.window.Openx.press();
    EXPECT_TRUE(program.host.edge.ended());
  }
}

TEST(SuddenEnd, WithNothingToSaveSendsNothing) {
  SignalledProgram program;
  program.state.startUp();
  program.signal();
  program.signal();
  EXPECT_TRUE(program.host.edge.ended());
  EXPECT_TRUE(program.host.serialPort.history().empty());
}

TEST(SuddenEnd, OnADiskThatIsFullKeepsWhatThereIsAndOpensNoBox) {
  SignalledProgram program;
  program.record();
  program.host.files.freeSpace = 100;
  program.signal();
  EXPECT_TRUE(program.host.edge.ended());
  EXPECT_TRUE(program.host.dialogs.shown.empty());
}

TEST(SuddenEnd, TheSecondExaminationTooComesHome) {
  SignalledProgram program;
  program.record();
  program.window.Stopd1.press();
  program.host.time.runUntil([&] { return program.state.intervalSelectable == 1; });
  program.host.time.runFor(1);
  program.host.dialogs.shown.clear();
  program.window.fileNameBox.type("seconda");
  program.window.Starts1.press();
  program.acquireBlocks(1);
  program.window.Registra.press();
  program.host.time.runUntil([&] { return program.state.recordingArmed == 0; });
  program.acquireBlocks(1);
  program.signal();
  EXPECT_EQ(program.host.files.content[recordings::folder + "seconda.QVD"].size(),
            recordings::header().size() + 2 * 1036);
  EXPECT_TRUE(program.host.dialogs.shown.empty());
}

TEST(EndBetweenStopAndItsTurn, StopsTheStreamToo) {
  SignalledProgram program;
  program.record();
  program.window.Stopd1.press();
  program.window.Endx1.press();
  program.expectHome(3);
  EXPECT_TRUE(program.hasStopped());
}

}  // namespace
}  // namespace korvinel
