#include "guidance/status.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "headless_program.h"
#include "recordings.h"
#include "signals.h"

namespace korvinel::guidance {
namespace {

using platform::Choice;
using testing::HasSubstr;
using testing::StartsWith;

/// The line at every moment of whole examinations.
struct StatusOf : testing::Test {
  [[nodiscard]] Status status() const { return statusOf(program.state, {"/dev/ttyUSB0"}); }
  [[nodiscard]] std::string text() const { return status().text; }
  /// Stops and waits until the acquisition has ended.
  void stop() {
    program.window.Stopd1.press();
    program.host.time.runUntil([&] { return !program.state.acquisitionPending(); });
  }
  void record(int blocks) {
    program.startAcquisition("uno");
    program.acquireBlocks(1);
    program.window.Registra.press();
    program.host.time.runUntil([&] { return program.state.recordingArmed == 0; });
    program.acquireBlocks(blocks);
  }

  HeadlessProgram program;
  platform::HeadlessPlatform& host = program.host;
};

TEST_F(StatusOf, AtRestItIsReady) {
  program.state.startUp();
  EXPECT_EQ(status(), (Status{Tone::calm, "Pronto", "Pronto"}));
}

TEST_F(StatusOf, TheHandshakeCountsItsSeconds) {
  std::vector<std::string> lines;
  for (const double moment : {0.5, 1.5, 3.5}) host.time.after(moment, [&] { lines.push_back(text()); });
  host.instrument.answer = "";
  host.time.after(4.5, [&] {
    lines.push_back(text());
    host.serialPort.deliver("OK");
  });
  program.startAcquisition();
  EXPECT_THAT(lines, testing::ElementsAre("Collegamento con COM2: ancora 4 s", "Collegamento con COM2: ancora 3 s",
                                          "Collegamento con COM2: ancora 1 s",
                                          "Collegamento con COM2: si attende la risposta dello strumento"));
}

TEST_F(StatusOf, WhileTheBoxOfACommunicationErrorIsOpenItSaysWhy) {
  Status seen;
  host.instrument.answer = "";
  host.dialogs.choices = {Choice::ok};
  host.dialogs.whileOpen = [&] {
    seen = status();
    host.instrument.answer = "OK";
  };
  program.startAcquisition();
  EXPECT_EQ(seen.tone, Tone::fault);
  EXPECT_THAT(seen.text, StartsWith("COM2 (/dev/ttyUSB0): la porta si apre ma lo strumento tace"));
  EXPECT_NE(status().tone, Tone::fault);
}

TEST_F(StatusOf, WithoutARecordingItSaysSo) {
  program.startAcquisition();
  program.acquireBlocks(7);
  EXPECT_EQ(text(), "In ascolto, NON si registra · 0:21");
  EXPECT_EQ(status().tone, Tone::listening);
  host.instrument.blocks = {instrumentBlock([](int, int) { return 255; }),
                            instrumentBlock([](int, int) { return 255; })};
  program.state.artefactThreshold = 90;
  program.acquireBlocks(2);
  EXPECT_EQ(text(), "In ascolto, NON si registra · 0:27 · scartati 1 di 10 (soglia 90)");
  EXPECT_EQ(status().spoken, "In ascolto, non si registra");
}

TEST_F(StatusOf, ARecordingHasItsTimeItsNotesAndWhatIsLeft) {
  record(42);
  program.window.Annotax.press();
  program.window.noteBox.type("occhi chiusi");
  program.window.noteBox.pressKey(13);
  program.window.Annotax.press();
  EXPECT_EQ(status(),
            (Status{Tone::recording, "Registrazione 2:06 · 2 note · restano 7:51", "Registrazione in corso"}));
}

TEST_F(StatusOf, BeforeItsFirstBlockTheRecordingIsAnnounced) {
  program.startAcquisition();
  program.acquireBlocks(1);
  program.window.Registra.press();
  EXPECT_EQ(text(), "La registrazione comincia con il prossimo blocco");
}

TEST_F(StatusOf, AfterStopTheTurnIsAwaited) {
  record(2);
  program.window.Stopd1.press();
  EXPECT_EQ(text(), "Si ferma alla fine del turno");
}

TEST_F(StatusOf, AKeptRecordingIsTold) {
  record(2);
  program.window.Annotax.press();
  program.window.noteBox.type("tosse");
  program.window.noteBox.pressKey(13);
  stop();
  EXPECT_EQ(status().tone, Tone::done);
  EXPECT_EQ(text(), "Salvato: uno.QVD, 3 blocchi, 1 nota");
}

TEST_F(StatusOf, AnExaminationWithoutARecordingLeavesNoFileAndSaysSo) {
  program.startAcquisition();
  program.acquireBlocks(2);
  stop();
  EXPECT_EQ(text(), "Nessun file scritto: Registra non è stato premuto");
  EXPECT_EQ(status().tone, Tone::warning);
}

TEST_F(StatusOf, TheRecordingOfTheExaminationBeforeIsNotTheNextOnes) {
  record(2);
  stop();
  program.window.fileNameBox.type("due");
  program.window.Starts1.press();
  program.acquireBlocks(1);
  stop();
  EXPECT_EQ(text(), "Nessun file scritto: Registra non è stato premuto");
}

TEST_F(StatusOf, AFullDiskIsTold) {
  record(2);
  host.files.freeSpace = 100;
  program.acquireBlocks(2);
  EXPECT_EQ(status().tone, Tone::fault);
  EXPECT_THAT(text(), HasSubstr("al sicuro in memoria"));
}

TEST_F(StatusOf, ADoubtAboutTheChannelsIsShownForAWhile) {
  record(2);
  host.serialPort.overrun();
  program.acquireBlocks(1);
  EXPECT_EQ(text(), "Allineamento dei canali incerto: flusso riavviato · la registrazione continua");
  program.acquireBlocks(5);
  EXPECT_THAT(text(), StartsWith("Registrazione 0:"));
}

TEST_F(StatusOf, AFileIsReadOpenAndReplayed) {
  program.state.startUp();
  const std::string path = recordings::folder + "esame.QVD";
  host.files.content[path] = recordings::file(10);
  host.dialogs.files.push_back(path);
  std::string reading, replaying;
  host.time.when([&] { return program.state.blockCount == 4; }, [&] { reading = text(); });
  program.window.Openx.press();
  EXPECT_EQ(reading, "Lettura 4 di 10");
  EXPECT_EQ(text(), "Aperto: esame.QVD · Rossi · 9 blocchi (0:27)");
  host.time.when([&] { return program.state.replayActive == 1 && program.state.blockCount == 3; },
                 [&] { replaying = text(); });
  program.window.Displayx.press();
  EXPECT_EQ(replaying, "Replay 3 di 9, velocità 6");
  EXPECT_EQ(text(), "Aperto: esame.QVD · Rossi · 9 blocchi (0:27)");
}

TEST_F(StatusOf, AFileThatCannotBeOpenedIsTold) {
  program.state.startUp();
  const std::string path = recordings::folder + "guasto.QVD";
  host.files.content[path] = "\"Rossi";
  host.dialogs.files.push_back(path);
  program.window.Openx.press();
  EXPECT_EQ(status().tone, Tone::fault);
  EXPECT_THAT(text(), StartsWith("File non aperto: "));
}

TEST_F(StatusOf, ReadingItChangesNothing) {
  record(2);
  const auto before = program.window.statusLabel.text();
  const int blocks = program.state.blockCount;
  for (int look = 0; look < 100; ++look) static_cast<void>(status());
  EXPECT_EQ(program.window.statusLabel.text(), before);
  EXPECT_EQ(program.state.blockCount, blocks);
}

}  // namespace
}  // namespace korvinel::guidance
