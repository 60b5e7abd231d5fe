#include <gtest/gtest.h>

#include "opened_file.h"
#include "signals.h"

namespace korvinel {
namespace {

std::vector<int> levels(int first, int last) {
  std::vector<int> expected;
  for (int block = first; block <= last; ++block) expected.push_back(recordings::levelOf(block));
  return expected;
}

/// An opened file of ten blocks, nine of them counted, with the replay speed at 20.
struct OpenedProgram : FileProgram {
  explicit OpenedProgram(int blocks = 10) : FileProgram(recordings::file(blocks)) {
    open();
    shown.clear();
    window.HScroll2.moveTo(20);
  }
  void replayFrom(int block) {
    window.Slider1.moveTo(block);
    window.Displayx.press();
  }
};

TEST(Replay, StartValuesBeyond1AreSkippedToo) {
  struct Case {
    int start, firstShown, lastShown;
  };
  const Case cases[] = {{0, 1, 10}, {1, 1, 10}, {2, 3, 10}, {7, 8, 10}, {9, 10, 10}};
  for (const auto& [start, first, last] : cases) {
    OpenedProgram program;
    program.replayFrom(start);
    EXPECT_EQ(program.shown, levels(first, last)) << start;
    EXPECT_TRUE(program.host.faults.empty());
  }
}

TEST(Replay, BeyondTheEndIsPulledBackToTheLastCountedBlock) {
  OpenedProgram program;
  program.replayFrom(150);
  EXPECT_EQ(program.shown, levels(10, 10));
}

TEST(Replay, AStartBlockSetBeyondTheDataOnlyRewinds) {
  OpenedProgram program;
  program.window.Slider1.setValue(50);
  program.state.stopRequested = 1;
  program.window.Displayx.press();
  EXPECT_TRUE(program.shown.empty());
  EXPECT_EQ(program.window.Slider1.value(), 1);
  EXPECT_EQ(program.state.stopRequested, 0);
  EXPECT_EQ(program.state.replayActive, 0);
}

TEST(Replay, ShowsEachBlockForThreeSecondsDividedByTheSpeed) {
  for (const int speed : {1, 2, 6, 20}) {
    OpenedProgram program;
    program.window.HScroll2.moveTo(speed);
    std::vector<double> times;
    program.window.replayPositionLabel.onChanged = [&] { times.push_back(program.host.time.seconds()); };
    program.window.Displayx.press();
    ASSERT_EQ(times.size(), 9U);
    for (std::size_t i = 1; i < times.size(); ++i) EXPECT_NEAR(times[i] - times[i - 1], 3.0 / speed, 0.011) << speed;
  }
}

TEST(Replay, AChangeOfSpeedActsOnTheBlockBeingShown) {
  OpenedProgram program;
  program.window.HScroll2.moveTo(1);
  const double start = program.host.time.seconds();
  program.host.time.after(0.1, [&] { program.window.HScroll2.moveTo(20); });
  program.window.Displayx.press();
  EXPECT_LT(program.host.time.seconds() - start, 0.2 + 9 * 0.17);
}

TEST(Replay, MovesTheSliderAndRewindsInTheEnd) {
  OpenedProgram program;
  std::vector<int> positions;
  program.window.Slider1.onChanged = [&] { positions.push_back(program.window.Slider1.value()); };
  program.shared.analysisFirstBlock = 4;
  program.shared.analysisLastBlock = 6;
  program.window.noteBox.setText("x");
  program.window.Displayx.press();
  EXPECT_EQ(positions, (std::vector<int>{1, 2, 3, 4, 5, 6, 7, 8, 9, 1}));
  EXPECT_EQ(program.shared.replayStartBlock, 1);
  EXPECT_EQ(program.shared.analysisFirstBlock, 1);
  EXPECT_EQ(program.shared.analysisLastBlock, 9);
  EXPECT_EQ(program.state.replayActive, 1);
  EXPECT_EQ(program.state.intervalSelectable, 1);
  EXPECT_EQ(program.window.noteBox.text(), "");
  EXPECT_EQ(program.window.blockLabel.text(), "V3");
  EXPECT_EQ(program.window.dateLabel.text(), "Data=21/11/2026 ");
}

TEST(Replay, StopIsAnsweredAfterTheNextBlockAndSaid) {
  OpenedProgram program;
  program.host.time.when([&] { return program.window.replayPositionLabel.text() == "4"; },
                         [&] { program.window.Stopd1.press(); });
  program.window.Displayx.press();
  EXPECT_EQ(program.shown, levels(1, 5));
  EXPECT_TRUE(program.window.firstTrace.shows("Stop data..."));
  EXPECT_EQ(program.state.stopRequested, 0);
  EXPECT_EQ(program.state.readHandle, nullptr);
}

TEST(Replay, EndDuringTheReplayEndsTheProgramAtOnce) {
  OpenedProgram program;
  program.host.time.after(0.4, [&] { program.window.Endx1.press(); });
  program.window.Displayx.press();
  EXPECT_TRUE(program.host.edge.ended());
  EXPECT_EQ(program.shown, levels(1, 3));
}

TEST(Replay, AnEndThatWasAskedForEndsTheProgramAfterTheFirstBlock) {
  OpenedProgram program;
  program.state.endRequested = 1;
  program.window.Displayx.press();
  EXPECT_TRUE(program.host.edge.ended());
  EXPECT_EQ(program.shown, levels(1, 1));
}

TEST(Replay, APendingPrintLeavesAfterOneBlock) {
  OpenedProgram program;
  program.state.printRequested = 1;
  program.window.Displayx.press();
  EXPECT_EQ(program.shown, levels(1, 1));
}

TEST(Replay, NeedsAnOpenFile) {
  HeadlessProgram program;
  program.state.startUp();
  program.window.Displayx.press();
  ASSERT_EQ(program.host.dialogs.shown.size(), 1U);
  EXPECT_EQ(program.host.dialogs.shown[0].text, "Prima aprire un file!");
}

TEST(Replay, IsRefusedDuringTheScan) {
  FileProgram program(recordings::file(50));
  program.host.time.when([&] { return program.state.blockCount == 7; }, [&] { program.window.Displayx.press(); });
  program.open();
  EXPECT_EQ(program.host.dialogs.shown.back().text, "Premere prima Stop!");
  EXPECT_EQ(program.shared.fileBlockCount, 49);
}

TEST(Replay, AFileThatVanishedIsAFaultThatLeavesTheStateUsable) {
  OpenedProgram program;
  program.host.files.content.erase(program.path);
  program.window.Displayx.press();
  ASSERT_EQ(program.host.faults.size(), 1U);
  EXPECT_EQ(program.state.replayActive, 0);
  EXPECT_EQ(program.state.fileLoopRunning, 0);
}

TEST(Replay, AFileThatHasLostItsHeaderIsAFaultAndStaysClosed) {
  OpenedProgram program;
  program.host.files.content[program.path] = "\"V3\"";
  program.window.Displayx.press();
  ASSERT_EQ(program.host.faults.size(), 1U);
  EXPECT_EQ(program.state.readHandle, nullptr);
  EXPECT_EQ(program.state.replayActive, 0);
  EXPECT_EQ(program.state.fileLoopRunning, 0);
}

TEST(Replay, OfAFileThatHasBecomeShorterThanTheStartBlockEndsAndRewinds) {
  OpenedProgram program;
  program.host.files.content[program.path] = recordings::file(3);
  program.replayFrom(7);
  EXPECT_TRUE(program.host.faults.empty());
  EXPECT_EQ(program.window.Slider1.value(), 1);
  EXPECT_EQ(program.state.readHandle, nullptr);
  EXPECT_EQ(program.state.fileLoopRunning, 0);
}

TEST(Replay, AnotherFileOpenedWhileThePlaceIsSoughtIsTheOneThatIsOpen) {
  OpenedProgram program(60);
  const std::string other = recordings::folder + "altro.QVD";
  program.host.files.content[other] = recordings::file(5);
  program.host.time.when([&] { return program.state.replayActive == 1 && program.state.blockCount == 30; },
                         [&] {
                           program.host.dialogs.files.push_back(other);
                           program.window.Openx.press();
                         });
  program.replayFrom(50);
  EXPECT_TRUE(program.host.faults.empty());
  EXPECT_EQ(program.state.openFilePath, other);
  EXPECT_EQ(program.shared.fileBlockCount, 4);
  EXPECT_EQ(program.state.fileLoopRunning, 0);
}

TEST(Replay, TheChecksAreMadeOnlyInItalian) {
  HeadlessProgram program;
  program.state.startUp();
  program.shared.languageFlag = "Eng";
  program.window.Displayx.press();
  EXPECT_TRUE(program.host.dialogs.shown.empty());
}

TEST(Replay, OfALongFileEndsWhereTheHistoriesEnd) {
  OpenedProgram program(250);
  program.replayFrom(190);
  ASSERT_EQ(program.host.faults.size(), 1U);
  EXPECT_EQ(program.host.faults[0], "La lettura si è fermata al blocco 203.\rIndice fuori dai limiti");
  EXPECT_EQ(program.window.Slider1.value(), 1);
  EXPECT_EQ(program.state.readHandle, nullptr);
  EXPECT_EQ(program.state.fileLoopRunning, 0);
}

TEST(Replay, AfterItStoppedAtABlockWithoutAPlaceTheDisplayGoesOnWithTheLastOneShown) {
  OpenedProgram program(250);
  program.replayFrom(190);
  EXPECT_EQ(program.state.blockCount, 202);
  program.window.HScroll1.moveTo(100);
  EXPECT_EQ(program.host.faults.size(), 1U);
}

TEST(Replay, TheSliderMovedBackWhileThePlaceIsSoughtDoesNotLoseIt) {
  OpenedProgram program(60);
  program.host.time.when([&] { return program.state.blockCount == 30; }, [&] { program.window.Slider1.moveTo(10); });
  program.replayFrom(50);
  EXPECT_EQ(program.shown.front(), recordings::levelOf(32));
}

TEST(Replay, AnUnknownTagRunsUntilStop) {
  FileProgram program(recordings::header({{1, "n"}}, "V9") + recordings::block(100));
  program.open();
  program.window.HScroll2.moveTo(20);
  program.host.time.after(5, [&] { program.window.Stopd1.press(); });
  program.window.Displayx.press();
  EXPECT_TRUE(program.window.firstTrace.shows("Stop data..."));
  EXPECT_TRUE(program.host.faults.empty());
}

TEST(Replay, DisplayDuringAReplayBeginsAnew) {
  OpenedProgram program;
  program.host.time.when([&] { return program.window.replayPositionLabel.text() == "4"; },
                         [&] {
                           program.window.Slider1.setValue(7);
                           program.window.Displayx.press();
                         });
  program.window.Displayx.press();
  std::vector<int> expected = levels(1, 4);
  for (const int level : levels(8, 10)) expected.push_back(level);
  EXPECT_EQ(program.shown, expected);
  EXPECT_EQ(program.state.fileLoopRunning, 0);
}

TEST(Replay, AnotherFileCanBeOpenedAtAnyMoment) {
  for (int press = 0; press < 16; ++press) {
    OpenedProgram program;
    program.host.files.content[recordings::folder + "altro.QVD"] = recordings::file(6);
    program.host.dialogs.files.push_back(recordings::folder + "altro.QVD");
    program.host.time.after(press * 0.11, [&] { program.window.Openx.press(); });
    program.window.Displayx.press();
    program.host.time.runFor(2);
    EXPECT_EQ(program.shared.fileBlockCount, 5) << press;
    EXPECT_EQ(program.window.blockLabel.text(), "Totale=15s") << press;
    EXPECT_EQ(program.state.openFileTitle, "altro.QVD") << press;
    EXPECT_EQ(program.state.replayActive, 0) << press;
    EXPECT_EQ(program.state.fileLoopRunning, 0) << press;
    EXPECT_TRUE(program.host.faults.empty()) << press;
  }
}

TEST(Replay, CancellingTheDialogDuringAReplayLeavesNoFileOpen) {
  OpenedProgram program;
  program.host.time.after(0.4, [&] { program.window.Openx.press(); });
  program.window.Displayx.press();
  EXPECT_EQ(program.state.openFilePath, "");
  EXPECT_EQ(program.state.intervalSelectable, 0);
  EXPECT_EQ(program.state.readHandle, nullptr);
  EXPECT_TRUE(program.host.faults.empty());
}

TEST(Replay, StartIsRefusedUntilStopAndThenBeginsAnAcquisition) {
  OpenedProgram program;
  program.window.fileNameBox.type("nuovo");
  program.host.time.after(0.3, [&] { program.window.Starts1.press(); });
  program.host.time.after(0.4, [&] {
    EXPECT_EQ(program.host.dialogs.shown.back().text, "Premere prima Stop!");
    program.window.Stopd1.press();
    program.window.Starts1.press();
  });
  program.window.Displayx.press();
  EXPECT_EQ(program.state.acquisitionRunning, 1);
  EXPECT_EQ(program.state.openFilePath, "");
  EXPECT_EQ(program.state.fileLoopRunning, 0);
  program.acquireBlocks(3);
  EXPECT_EQ(program.state.blockCount, 3);
  EXPECT_TRUE(program.host.faults.empty());
}

TEST(Replay, AStopPressedBeforehandDoesNotStopIt) {
  OpenedProgram program;
  program.window.Stopd1.press();
  program.window.Displayx.press();
  EXPECT_EQ(program.shown, levels(1, 10));
  EXPECT_FALSE(program.window.firstTrace.shows("Stop data..."));
}

TEST(Replay, WhatWasAskedToBePrintedIsPrintedBeforeTheProgramEnds) {
  OpenedProgram program;
  program.state.endRequested = program.state.printRequested = 1;
  program.host.dialogs.choices = {platform::Choice::ok};
  program.window.Displayx.press();
  EXPECT_EQ(program.host.printer.done.size(), 2U);
  EXPECT_TRUE(program.host.edge.ended());
}

TEST(Replay, LetsGoOfADragOnTheTimeStripAtItsEnd) {
  OpenedProgram program;
  program.host.time.after(0.4, [&] { program.window.stripPointer.onPressed(6); });
  program.window.Displayx.press();
  EXPECT_EQ(program.state.selectionDragging, 0);
  program.window.stripPointer.onReleased(20);
  EXPECT_EQ(program.shared.analysisFirstBlock, 1);
  EXPECT_EQ(program.shared.analysisLastBlock, 9);
}

/// Block n is a tone in band 1..4, Delta to Beta, with high frequencies that the low-pass of the scan removes; channel
/// 1 blinks.
constexpr int cyclesOfBand[] = {0, 4, 10, 20, 40};
int bandOf(int block) { return (block - 1) % 4 + 1; }

std::string fileOfBands(int blocks) {
  std::string file = recordings::header();
  for (int n = 1; n <= blocks; ++n)
    file += recordings::signalBlock([&](int channel, int s) {
      if (channel == 1 && s % 64 < 4) return 250.0;
      return 128 + sineAt(s, cyclesOfBand[bandOf(n)], 40) + sineAt(s, 100, 20);
    });
  return file;
}

struct BandReplay : FileProgram {
  explicit BandReplay(bool screensEyes = false) : FileProgram(fileOfBands(8)) {
    window.ocularCheck.setChecked(screensEyes);
    open();
    window.HScroll2.moveTo(20);
  }
  /// Replays and does this with the number of each block that is on show.
  void replay(const std::function<void(int)>& look) {
    window.replayPositionLabel.onChanged = [this, look] { look(std::stoi(window.replayPositionLabel.text())); };
    window.Displayx.press();
  }
};

TEST(Replay, RemovesOcularArtefactsFromTheTracesWhereThatIsWanted) {
  for (const bool wanted : {false, true}) {
    BandReplay program(wanted);
    int looked = 0;
    program.replay([&](int block) {
      ++looked;
      EXPECT_EQ(hasLine(program.window.firstTrace, 64, 5, 65, 5, platform::Colour::lightGreen), !wanted) << block;
    });
    EXPECT_EQ(looked, 7);
  }
}

TEST(Replay, AnalysesEachBlockAsItWasRecordedWithoutTheLowPass) {
  BandReplay program;
  const auto& history = program.shared.spectrumHistory;
  for (int block = 1; block <= 7; ++block) EXPECT_LT(history[block][2][101], 1.0F) << block;
  program.replay([&](int block) {
    EXPECT_GT(history[block][2][101], 5.0F) << block;
    EXPECT_EQ(program.state.amplitudeSpectrum[2][101], history[block][2][101]) << block;
  });
}

TEST(Replay, ShowsTheSpectraAndTheTimeOfEachBlock) {
  BandReplay program;
  program.replay([&](int block) {
    EXPECT_EQ(program.window.timeLabel.text(), "Tempo=" + std::to_string(3 * block) + " secondi");
    std::vector<double> ends;
    for (const auto& mark : program.window.rightSpectrum.marks())
      if (mark.kind == platform::Mark::Kind::box) ends.push_back(mark.x2);
    const auto longest = std::max_element(ends.begin(), ends.end()) - ends.begin();
    EXPECT_EQ(longest, cyclesOfBand[bandOf(block)]) << block;
  });
}

TEST(Replay, ShowsTheBandPeaksOfEachBlock) {
  BandReplay program;
  program.replay([&](int block) {
    std::vector<double> peaks;
    for (const std::string& text : program.window.secondNumbers.texts())
      if (const auto sign = text.find('='); sign != std::string::npos)
        peaks.push_back(std::stod(text.substr(sign + 1)));
    ASSERT_EQ(peaks.size(), 4U) << block;
    EXPECT_EQ(std::max_element(peaks.begin(), peaks.end()) - peaks.begin(), bandOf(block) - 1) << block;
  });
}

}  // namespace
}  // namespace korvinel
