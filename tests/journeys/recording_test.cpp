#include <gtest/gtest.h>

#include "opened_file.h"

namespace korvinel {
namespace {

/// The bytes of an instrument block whose channels are flat at `level`.
std::string flatBlock(int level) { return std::string(1024, static_cast<char>(level)); }

/// A program whose instrument sends block n flat at `levelOf(n)`; subtracting the baseline makes it 128.
struct ExaminationProgram : HeadlessProgram {
  ExaminationProgram() {
    for (int n = 1; n <= 300; ++n) host.instrument.blocks.push_back(flatBlock(recordings::levelOf(n)));
  }
  void writeNote(const std::string& text) {
    window.Annotax.press();
    window.noteBox.type(text);
    window.noteBox.pressKey(13);
  }
  /// Switches the recording on and waits for the end of the turn, whose block is recorded; the count restarts.
  void startRecording() {
    window.Registra.press();
    host.time.runUntil([&] { return state.recordingArmed == 0; });
  }
  void stop() {
    window.Stopd1.press();
    waitForEnd();
  }
  void waitForEnd() {
    host.time.runUntil([&] { return state.intervalSelectable == 1; });
    host.time.runFor(0.1);
  }
  const std::string& dataFile() { return host.files.content[recordings::folder + "prova.QVD"]; }
};

TEST(RecordingJourney, FiveOfNineBlocksWithTwoNotesAndTheFileOpenedAgain) {
  ExaminationProgram program;
  program.startAcquisition();
  program.acquireBlocks(4);
  program.startRecording();
  EXPECT_EQ(program.state.blockCount, 0);
  EXPECT_EQ(program.window.statusLabel.text(), "Registrazione attiva");
  program.acquireBlocks(2);
  program.writeNote("occhi aperti");
  program.acquireBlocks(2);
  program.writeNote("occhi chiusi");
  program.stop();
  EXPECT_EQ(program.window.blockLabel.text(), "Totale= 15s");
  EXPECT_EQ(program.window.statusLabel.text(), "Registrazione Disattiva");
  EXPECT_EQ(program.dataFile().size(),
            recordings::header({{2, "occhi aperti"}, {4, "occhi chiusi"}}).size() + 5 * 1036);
  EXPECT_TRUE(program.dataFile().starts_with(
      "\"Rossi\",\"21/11/2026 V3\",\"4canali\",2\r\n2,\"occhi aperti\"\r\n4,\"occhi chiusi\"\r\n"));
  EXPECT_FALSE(program.host.files.content.contains(recordings::temporary));

  program.host.dialogs.files.push_back(recordings::folder + "prova.QVD");
  program.window.Openx.press();
  EXPECT_EQ(program.window.blockLabel.text(), "Totale=12s");
  EXPECT_EQ(program.state.noteTexts[2], "occhi chiusi");
  EXPECT_EQ(program.window.subjectBox.text(), "Rossi");
  EXPECT_EQ(program.window.fileNameBox.text(), "prova.QVD");
  program.window.Displayx.press();
  EXPECT_EQ(program.window.Slider1.value(), 1);
  EXPECT_TRUE(program.host.faults.empty());
}

TEST(RecordingJourney, AWholeExaminationToTheBlockLimitIsRecorded) {
  ExaminationProgram program;
  program.startAcquisition();
  program.acquireBlocks(1);
  program.window.Registra.press();
  program.waitForEnd();
  EXPECT_EQ(program.window.blockLabel.text(), "Totale= 600s");
  EXPECT_EQ(program.dataFile().size(), recordings::header().size() + 200 * 1036);
  EXPECT_TRUE(program.host.faults.empty());
}

TEST(RecordingJourney, RejectedBlocksAreNotRecorded) {
  ExaminationProgram program;
  program.host.dialogs.inputs.push_back("70");
  program.startAcquisition();
  program.window.Artefact.press();
  program.acquireBlocks(1);
  program.startRecording();
  program.host.instrument.blocks.clear();
  for (const int level : {255, 128, 255, 255, 128}) program.host.instrument.blocks.push_back(flatBlock(level));
  program.acquireBlocks(2);
  program.stop();
  EXPECT_EQ(program.dataFile().size(), recordings::header().size() + 3 * 1036);
}

TEST(RecordingJourney, TwoExaminationsInARowMakeTwoFiles) {
  ExaminationProgram program;
  program.startAcquisition("uno");
  program.window.Registra.press();
  program.acquireBlocks(2);
  program.stop();
  program.window.fileNameBox.type("due");
  program.window.Starts1.press();
  program.acquireBlocks(1);
  program.window.Registra.press();
  program.acquireBlocks(1);
  program.stop();
  const auto& content = program.host.files.content;
  EXPECT_TRUE(content.contains(recordings::folder + "uno.QVD"));
  EXPECT_TRUE(content.contains(recordings::folder + "due.QVD"));
  EXPECT_TRUE(program.host.faults.empty());
}

/// Starts recording and presses a button `delay` seconds later.
void pressDuringRecording(ExaminationProgram& program, platform::Button& button, double delay) {
  program.startAcquisition();
  program.acquireBlocks(1);
  program.window.Registra.press();
  const double pressed = program.host.time.seconds();
  program.host.time.runUntil([&] { return program.host.time.seconds() >= pressed + delay; });
  button.press();
}

TEST(RecordingJourney, StopAtAnyMomentMakesAWholeFile) {
  for (double delay = 0; delay < 7; delay += 0.19) {
    ExaminationProgram program;
    pressDuringRecording(program, program.window.Stopd1, delay);
    program.waitForEnd();
    ASSERT_EQ((program.dataFile().size() - recordings::header().size()) % 1036, 0U) << delay;
    EXPECT_EQ(program.state.recordingActive, 0) << delay;
    EXPECT_EQ(program.state.recordingArmed, 0) << delay;
    EXPECT_EQ(program.state.acquisitionRunning, 0) << delay;
    EXPECT_FALSE(program.host.files.content.contains(recordings::temporary)) << delay;
    EXPECT_TRUE(program.host.faults.empty()) << delay;
  }
}

TEST(RecordingJourney, EndAtAnyMomentMakesAWholeFileAndEndsTheProgram) {
  for (double delay = 0; delay < 7; delay += 0.19) {
    ExaminationProgram program;
    pressDuringRecording(program, program.window.Endx1, delay);
    program.host.time.runFor(10);
    EXPECT_TRUE(program.host.edge.ended()) << delay;
    ASSERT_TRUE(program.host.files.content.contains(recordings::folder + "prova.QVD")) << delay;
    EXPECT_EQ((program.dataFile().size() - recordings::header().size()) % 1036, 0U) << delay;
    EXPECT_FALSE(program.host.files.content.contains(recordings::temporary)) << delay;
  }
}

TEST(RecordingJourney, EndAtAnyMomentAfterStopStillMakesTheFileWithItsNotes) {
  for (double delay = 0; delay < 3.5; delay += 0.13) {
    ExaminationProgram program;
    program.startAcquisition();
    program.acquireBlocks(1);
    program.startRecording();
    program.acquireBlocks(2);
    program.writeNote("occhi chiusi");
    program.window.Stopd1.press();
    program.host.time.after(delay, [&] { program.window.Endx1.press(); });
    program.host.time.runFor(10);
    EXPECT_TRUE(program.host.edge.ended()) << delay;
    const std::string& file = program.dataFile();
    EXPECT_NE(file.find("\r\n2,\"occhi chiusi\"\r\n"), std::string::npos) << delay;
    EXPECT_EQ(file.size(), recordings::header({{2, "occhi chiusi"}}).size() + 3 * 1036) << delay;
    EXPECT_FALSE(program.host.files.content.contains(recordings::temporary)) << delay;
  }
}

TEST(RecordingJourney, CancelInACommunicationErrorStillMakesTheFile) {
  ExaminationProgram program;
  program.startAcquisition();
  program.acquireBlocks(1);
  program.startRecording();
  program.acquireBlocks(2);
  program.host.instrument.goSilent();
  program.host.time.runFor(15);
  EXPECT_TRUE(program.host.edge.ended());
  // One more block had arrived before the instrument fell silent.
  EXPECT_EQ(program.dataFile().size(), recordings::header().size() + 4 * 1036);
  EXPECT_FALSE(program.host.files.content.contains(recordings::temporary));
}

TEST(RecordingJourney, ImpatientButtonsAfterStopLoseNothing) {
  for (double delay = 0; delay < 3.5; delay += 0.13) {
    ExaminationProgram program;
    pressDuringRecording(program, program.window.Stopd1, 8);
    program.host.time.after(delay, [&] {
      program.window.Starts1.press();
      program.window.Openx.press();
      program.window.Displayx.press();
      program.window.Registra.press();
    });
    program.waitForEnd();
    EXPECT_EQ(program.dataFile().size() % 1036, recordings::header().size() % 1036) << delay;
    EXPECT_GE(program.dataFile().size(), recordings::header().size() + 2 * 1036) << delay;
    EXPECT_TRUE(program.host.faults.empty()) << delay;
  }
}

TEST(RecordingJourney, ADiskThatFillsInMidRecordingIsToldAtOnceAndAtTheEnd) {
  ExaminationProgram program;
  program.startAcquisition();
  program.acquireBlocks(1);
  program.window.Registra.press();
  program.acquireBlocks(2);
  program.host.files.freeSpace = 1500;
  program.acquireBlocks(2);
  EXPECT_EQ(program.window.statusLabel.text(), "Errore di scrittura su disco!");
  EXPECT_EQ(program.state.acquisitionRunning, 1);
  program.host.dialogs.giveRecordingsUp();
  program.stop();
  ASSERT_EQ(program.host.dialogs.shown.size(), 4U);
  EXPECT_TRUE(program.host.dialogs.shown[2].text.starts_with("Errore di scrittura durante la registrazione!\r"));
  EXPECT_TRUE(program.host.dialogs.shown[3].text.starts_with("Attenzione: per una Analisi affidabile"));
  EXPECT_FALSE(program.host.files.content.contains(recordings::temporary));
  EXPECT_TRUE(program.host.files.content.contains(program.state.setAsidePath));
}

TEST(RecordingJourney, StopAtAnyMomentOfAScan) {
  constexpr double pollTime = 0.0001;
  for (int polls = 1; polls <= 10; ++polls) {
    FileProgram program(recordings::file(10));
    program.host.time.after((polls - 0.5) * pollTime, [&] { program.window.Stopd1.press(); });
    program.open();
    EXPECT_EQ(program.window.blockLabel.text(), std::to_string(polls));
    EXPECT_EQ(program.state.intervalSelectable, 0) << polls;
    EXPECT_EQ(program.shared.fileBlockCount, 0) << polls;
    EXPECT_EQ(program.state.readHandle, nullptr) << polls;
    EXPECT_TRUE(program.host.faults.empty()) << polls;
  }
}

TEST(RecordingJourney, StopAtAnyMomentOfAReplay) {
  for (double delay = 0; delay < 1; delay += 0.07) {
    FileProgram program(recordings::file(8));
    program.window.HScroll2.moveTo(20);
    program.open();
    program.host.time.after(delay, [&] { program.window.Stopd1.press(); });
    program.window.Displayx.press();
    EXPECT_TRUE(program.window.firstTrace.shows("Stop data...")) << delay;
    EXPECT_EQ(program.window.Slider1.value(), 1) << delay;
    EXPECT_EQ(program.state.readHandle, nullptr) << delay;
    EXPECT_EQ(program.state.stopRequested, 0) << delay;
    EXPECT_TRUE(program.host.faults.empty()) << delay;
  }
}

TEST(RecordingJourney, AnotherFileAfterStopAtAnyMomentOfAScan) {
  for (double delay = 0; delay < 0.0012; delay += 0.0001) {
    FileProgram program(recordings::file(10));
    program.host.files.content[recordings::folder + "altro.QVD"] = recordings::file(5);
    program.host.time.after(delay, [&] {
      program.window.Stopd1.press();
      program.host.dialogs.files.push_back(recordings::folder + "altro.QVD");
      program.window.Openx.press();
    });
    program.open();
    program.host.time.runFor(0.1);
    EXPECT_EQ(program.window.blockLabel.text(), "Totale=12s") << delay;
    EXPECT_EQ(program.shared.fileBlockCount, 4) << delay;
    EXPECT_EQ(program.state.fileLoopRunning, 0) << delay;
    EXPECT_TRUE(program.host.faults.empty()) << delay;
  }
}

}  // namespace
}  // namespace korvinel
