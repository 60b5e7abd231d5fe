#include "recording/conclusion.h"

#include <gtest/gtest.h>

#include "headless_program.h"
#include "recording/side_file.h"
#include "recordings.h"
#include "values/field_reader.h"

namespace korvinel {
namespace {

using platform::Choice;
using recordings::folder;

const std::string stick = "/media/chiavetta/";

/// A recording of some blocks with a note, before its end.
struct Recording : HeadlessProgram {
  Recording() {
    startAcquisition();
    acquireBlocks(1);
    window.Registra.press();
    host.time.runUntil([&] { return state.recordingArmed == 0; });
    acquireBlocks(2);
    window.Annotax.press();
    window.noteBox.type("occhi chiusi");
    window.noteBox.pressKey(13);
    header = "\"Rossi\",\"21/11/2026 V3\",\"4canali\",1\r\n2,\"occhi chiusi\"\r\n";
  }
  void stop() {
    window.Stopd1.press();
    host.time.runUntil([&] { return state.intervalSelectable == 1; });
    host.time.runFor(1);
  }
  /// The data file of everything recorded so far.
  std::string wholeFile() const {
    return header + state.temporaryContent.substr(state.temporaryContent.find('\n') + 1);
  }
  /// Keeps the expected data file and runs `act` when assembling begins.
  void whenAssembled(const std::function<void()>& act) {
    host.time.when([this] { return state.assembling == 1; },
                   [this, act] {
                     whole = wholeFile();
                     act();
                   });
  }
  bool isTold(const std::string& words) const {
    for (const auto& box : host.dialogs.shown)
      if (box.kind == "notice" && box.text.find(words) != std::string::npos) return true;
    return false;
  }
  int timesAsked() const {
    int count = 0;
    for (const auto& box : host.dialogs.shown) count += box.kind == "question";
    return count;
  }
  std::string header, whole;
};

struct Homeless : Recording {
  Homeless() {
    acquireBlocks(1);
    host.files.goneFolder = folder;
    state.stopRequested = 1;
    whole = wholeFile();
  }
};

TEST(ConcludeRecording, WhereTheFolderIsGoneAsksForAnotherPlaceUntilTheRecordingIsThere) {
  Homeless program;
  program.host.dialogs.choices = {Choice::ok, Choice::ok, Choice::cancel, Choice::cancel, Choice::ok};
  program.host.dialogs.folders = {"", folder, stick};
  program.state.endRecording();
  EXPECT_EQ(program.host.files.content[stick + "prova.QVD"], program.whole);
  EXPECT_EQ(program.timesAsked(), 5);
  EXPECT_TRUE(program.isTold("La registrazione completa \xC3\xA8 nel file\r" + stick + "prova.QVD"));
}

TEST(ConcludeRecording, InAnotherPlaceOverwritesNothing) {
  Homeless program;
  program.host.files.content[stick + "prova.QVD"] = "di altri";
  program.host.files.content[stick + "prova (2).QVD"] = "di altri";
  program.host.dialogs.choices = {Choice::ok};
  program.host.dialogs.folders = {stick};
  program.state.endRecording();
  EXPECT_EQ(program.host.files.content[stick + "prova.QVD"], "di altri");
  EXPECT_EQ(program.host.files.content[stick + "prova (2).QVD"], "di altri");
  EXPECT_EQ(program.host.files.content[stick + "prova (3).QVD"], program.whole);
}

TEST(ConcludeRecording, IsGivenUpOnlyInSoManyWords) {
  Homeless program;
  program.host.dialogs.choices = {Choice::cancel, Choice::cancel, Choice::cancel, Choice::ok};
  program.state.endRecording();
  EXPECT_EQ(program.timesAsked(), 4);
  EXPECT_TRUE(program.isTold("La registrazione non \xC3\xA8 stata salvata."));
}

TEST(ConcludeRecording, TakesTheHomeFolderWhereNobodyCanBeAsked) {
  Homeless program;
  program.state.nobodyToAsk = 1;
  bringRecordingHome(program.state);
  EXPECT_EQ(program.host.files.content["/home/medico/prova.QVD"], program.whole);
  ASSERT_EQ(program.host.machine.told.size(), 1U);
  const std::string& told = program.host.machine.told.front();
  EXPECT_NE(told.find("/home/medico/prova.QVD"), std::string::npos) << told;
  EXPECT_TRUE(program.host.dialogs.shown.empty());
}

TEST(ConcludeRecording, ADiskThatFilledInMidRecordingGivesTheRestToAnotherPlace) {
  Recording program;
  program.host.files.freeSpace = 1500;
  program.acquireBlocks(3);
  program.window.Annotax.press();
  program.whenAssembled([] {});
  program.host.dialogs.onQuestion = [&](const std::string&) {
    program.host.files.freeSpace = 1'000'000;  // of the stick
    return Choice::ok;
  };
  program.host.dialogs.folders = {stick};
  program.header = "\"Rossi\",\"21/11/2026 V3\",\"4canali\",2\r\n2,\"occhi chiusi\"\r\n5,\"\"\r\n";
  program.whole = program.wholeFile();
  program.state.endRecording();
  EXPECT_EQ(program.host.files.content[stick + "prova.QVD"].substr(0, program.header.size()), program.header);
  EXPECT_EQ(program.host.files.content[stick + "prova.QVD"], program.whole);
}

TEST(ConcludeRecording, LeavesNothingBehindForTheNextExamination) {
  Recording program;
  program.host.files.goneFolder = folder;
  program.host.dialogs.choices = {Choice::ok};
  program.host.dialogs.folders = {stick};
  program.stop();
  ASSERT_TRUE(program.host.files.content.contains(stick + "prova.QVD"));
  program.host.files.goneFolder.clear();
  program.window.fileNameBox.type("due");
  program.window.subjectBox.type("Verdi");
  program.window.Starts1.press();
  program.acquireBlocks(1);
  program.window.Registra.press();
  program.acquireBlocks(2);
  EXPECT_TRUE(program.isTold("Una registrazione precedente non era stata conclusa."));
  program.host.dialogs.shown.clear();
  program.stop();
  EXPECT_EQ(program.host.dialogs.shown.size(), 1U) << "the advice at every end, and nothing of the other";
  const std::string& data = program.host.files.content.at(folder + "due.QVD");
  EXPECT_TRUE(data.starts_with("\"Verdi\",\"21/11/2026 V3\",\"4canali\",1\r\n1,\"Nota: \"\r\n"));
  EXPECT_FALSE(program.host.files.content.contains(recordings::temporary));
  EXPECT_FALSE(program.host.files.content.contains(folder + "Tempor1.NOT"));
}

TEST(ConcludeRecording, AsksForAnotherPlaceAgainInTheNextExamination) {
  Recording program;
  program.host.files.goneFolder = folder;
  program.host.dialogs.choices = {Choice::ok};
  program.host.dialogs.folders = {stick};
  program.stop();
  program.host.files.goneFolder.clear();
  program.window.fileNameBox.type("due");
  program.window.Starts1.press();
  program.acquireBlocks(1);
  program.window.Registra.press();
  program.acquireBlocks(2);
  program.host.files.goneFolder = folder;
  program.host.dialogs.choices = {Choice::ok};
  program.host.dialogs.folders = {stick};
  program.stop();
  EXPECT_TRUE(program.host.files.content.contains(stick + "due.QVD"));
}

TEST(ConcludeRecording, AFailedWriteAtTheEndKeepsTheNotesWithTheBlocks) {
  for (const int room : {0, 30, 70, 1500}) {
    Recording program;
    program.host.files.freeSpace = room;
    program.stop();
    EXPECT_TRUE(program.isTold("I dati registrati sono conservati nel file\r" + program.state.setAsidePath)) << room;
    EXPECT_EQ(program.timesAsked(), 0) << room;
    TextSource source(program.host.files.content[sidePathOf(program.state.setAsidePath)]);
    const SideFile side = readSideFile(source);
    EXPECT_EQ(side.subject, "Rossi") << room;
    EXPECT_EQ(side.dataFileName, "prova.QVD") << room;
    ASSERT_EQ(side.noteCount, 1) << room;
    EXPECT_EQ(side.noteTexts[1], "occhi chiusi") << room;
  }
}

TEST(BringRecordingHome, EndAtAnyMomentAfterStopOnAFullDiskTellsOnceWhereTheDataAre) {
  for (double delay = 0; delay < 5; delay += 0.1) {
    Recording program;
    program.window.Stopd1.press();
    program.host.time.after(delay, [&] {
      program.host.files.freeSpace = 0;
      program.window.Endx1.press();
    });
    program.host.files.freeSpace = 1200;
    program.host.time.runFor(10);
    ASSERT_TRUE(program.host.edge.ended()) << delay;
    int told = 0;
    for (const auto& box : program.host.dialogs.shown)
      told += box.text.find("I dati registrati sono conservati nel file\r" + program.state.setAsidePath) !=
              std::string::npos;
    EXPECT_EQ(told, 1) << delay;
    EXPECT_TRUE(program.host.files.content.contains(program.state.setAsidePath)) << delay;
  }
}

TEST(BringRecordingHome, EndWhileTheFileIsWrittenWritesTheRestBeforeTheProgramEnds) {
  for (const bool diskIsFull : {false, true}) {
    Recording program;
    program.acquireBlocks(5);
    bool wasWhole = false;
    program.host.edge.onEnd = [&] { wasWhole = program.state.assembling == 0; };
    program.whenAssembled([&] {
      if (diskIsFull) program.host.files.freeSpace = 100;
      program.window.Endx1.press();
    });
    program.window.Stopd1.press();
    program.host.time.runFor(10);
    EXPECT_TRUE(wasWhole);
    EXPECT_EQ(program.isTold("Errore di scrittura durante la registrazione!"), diskIsFull);
    if (!diskIsFull) {
      EXPECT_EQ(program.host.files.content[folder + "prova.QVD"], program.whole);
    }
  }
}

TEST(BringRecordingHome, CancelInACommunicationErrorOnAFullDiskIsTold) {
  Recording program;
  program.host.files.freeSpace = 2500;
  program.host.instrument.goSilent();
  program.host.time.runFor(15);
  EXPECT_TRUE(program.host.edge.ended());
  EXPECT_TRUE(program.isTold("I dati registrati sono conservati nel file\r" + program.state.setAsidePath));
}

TEST(BringRecordingHome, CancelInACommunicationErrorWithoutAFolderAsksForAnotherPlace) {
  Recording program;
  program.host.files.goneFolder = folder;
  program.host.instrument.goSilent();
  program.host.dialogs.onQuestion = [](const std::string& text) {
    return text.starts_with("Errore di comunicazione!") ? Choice::cancel : Choice::ok;
  };
  program.host.dialogs.folders = {stick};
  program.host.time.runFor(15);
  EXPECT_TRUE(program.host.edge.ended());
  EXPECT_EQ(program.host.files.content[stick + "prova.QVD"], program.wholeFile());
}

TEST(StartRecording, TellsWhereALeftOverWentEvenIfItCannotRecord) {
  HeadlessProgram program;
  program.startAcquisition();
  program.acquireBlocks(1);
  program.host.files.content[recordings::temporary] =
      "\"Verdi\",\"20/11/2026\",\"4canali\"\r\n" + recordings::block(100);
  program.host.files.freeSpace = 0;
  program.window.Registra.press();
  EXPECT_EQ(program.state.recordingActive, 0);
  ASSERT_EQ(program.host.dialogs.shown.size(), 2U);
  EXPECT_TRUE(program.host.dialogs.shown[0].text.starts_with("Impossibile registrare!"));
  EXPECT_NE(program.host.dialogs.shown[1].text.find(folder + "Tempor1 2026-11-21"), std::string::npos);
}

}  // namespace
}  // namespace korvinel
