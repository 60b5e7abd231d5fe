#include <gtest/gtest.h>

#include "acquisition_end.h"
#include "headless_program.h"
#include "recordings.h"

namespace korvinel {
namespace {

using platform::Choice;
using platform::Colour;
using platform::Mark;

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
  EXPECT_EQ(program.state.recordingArmed, 0);
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

TEST(EndWithoutAsking, WritesNothingToALineWhoseAdapterIsGone) {
  HeadlessProgram program;
  program.startAcquisition();
  program.acquireBlocks(1);
  program.host.serialPort.unplug();
  const std::string written = program.host.serialPort.written();
  program.host.edge.run([&] { program.state.endWithoutAsking(); });
  EXPECT_TRUE(program.host.edge.ended());
  EXPECT_EQ(program.host.serialPort.written(), written);
}

}  // namespace
}  // namespace korvinel
