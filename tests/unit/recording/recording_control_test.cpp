#include <gtest/gtest.h>

#include "headless_program.h"
#include "recording/data_paths.h"
#include "recordings.h"

namespace korvinel {
namespace {

using platform::Colour;
using recordings::folder;

struct Acquiring : HeadlessProgram {
  Acquiring() {
    startAcquisition();
    acquireBlocks(1);
  }
};

TEST(CheckFileName, IgnoresCaseAndAddsTheEnding) {
  struct Case {
    const char *typed, *existing;
    int exists;
  };
  const Case cases[] = {{"Test", "TEST.QVD", 1},     {"Test.QVD", "test.qvd", 1},
                        {"Test.qvd", "Test.qvd", 0}, {"Test.qvd", "Test.qvd.QVD", 1},
                        {"Tes", "Test.QVD", 0},      {"perch\xC3\xA9", "PERCH\xC3\x89.QVD", 1},
                        {"QVD", "QVD.QVD", 0}};
  for (const Case& c : cases) {
    HeadlessProgram program;
    program.host.files.content[folder + c.existing] = "";
    program.window.fileNameBox.type(c.typed);
    program.state.checkFileName();
    EXPECT_EQ(program.state.fileNameExists, c.exists) << c.typed << " " << c.existing;
  }
}

TEST(CheckFileName, TheListingHasNoLimit) {
  HeadlessProgram program;
  for (int i = 0; i < 1000; ++i) program.host.files.content[folder + "f" + std::to_string(i) + ".QVD"] = "";
  program.window.fileNameBox.type("F999");
  program.state.checkFileName();
  EXPECT_EQ(program.state.fileNameExists, 1);
}

TEST(StartCommand, RefusesANameThatExists) {
  HeadlessProgram program;
  program.host.files.content[folder + "PROVA.QVD"] = "";
  program.startAcquisition();
  ASSERT_EQ(program.host.dialogs.shown.size(), 1U);
  EXPECT_EQ(program.host.dialogs.shown[0].text, "Questo nome di file esiste gia'!Cambiare nome!");
  EXPECT_EQ(program.state.acquisitionRunning, 0);
  EXPECT_FALSE(program.host.serialPort.isOpen());
}

TEST(StartRecording, TurnsTheButtonYellowAndTheStatusRed) {
  Acquiring program;
  program.window.Registra.press();
  EXPECT_EQ(program.state.recordingActive, 1);
  EXPECT_EQ(program.state.recordingArmed, 1);
  EXPECT_EQ(program.window.Registra.backColour(), Colour::yellow);
  EXPECT_EQ(program.window.statusLabel.ink(), Colour::lightRed);
  EXPECT_EQ(program.window.statusLabel.text(), "Registrazione Attiva");
  EXPECT_EQ(program.host.files.content[recordings::temporary], "\"Rossi\",\"21/11/2026\",\"4canali\"\r\n");
}

TEST(StartRecording, IsIgnoredWithoutAcquisitionWithAnOpenFileAndASecondTime) {
  HeadlessProgram idle;
  idle.state.startUp();
  idle.window.Registra.press();
  EXPECT_EQ(idle.state.recordingActive, 0);

  Acquiring opened;
  opened.state.openFilePath = "x";
  opened.window.Registra.press();
  EXPECT_EQ(opened.state.recordingActive, 0);

  Acquiring twice;
  twice.window.Registra.press();
  twice.acquireBlocks(1);
  const std::string recorded = twice.host.files.content[recordings::temporary];
  twice.window.Registra.press();
  EXPECT_EQ(twice.host.files.content[recordings::temporary], recorded);
}

TEST(StartRecording, IsRefusedOnceTheEndOfTheProgramIsAskedFor) {
  Acquiring program;
  program.window.Endx1.press();
  program.window.Registra.press();
  EXPECT_EQ(program.state.recordingActive, 0);
  EXPECT_EQ(program.state.recordingArmed, 0);
  ASSERT_EQ(program.host.dialogs.shown.size(), 1U);
  EXPECT_EQ(program.host.dialogs.shown[0].text,
            "Impossibile registrare!\rL'acquisizione sta terminando.\rLa registrazione resta disattiva.");
}

TEST(StartRecording, ItsWordsAndThoseOfItsEndAreWrittenOnlyInItalian) {
  Acquiring program;
  program.shared.languageFlag = "Eng";
  const std::string status = program.window.statusLabel.text();
  program.window.Registra.press();
  EXPECT_EQ(program.state.recordingActive, 1);
  EXPECT_EQ(program.window.statusLabel.ink(), Colour::lightRed);
  EXPECT_EQ(program.window.statusLabel.text(), status);
  program.acquireBlocks(1);
  bool waits = false;
  program.window.firstTrace.onChanged = [&] { waits = waits || program.window.firstTrace.shows("Attendere.."); };
  program.state.endRecording();
  EXPECT_FALSE(waits);
  EXPECT_TRUE(program.host.files.content.contains(folder + "prova.QVD"));
}

TEST(StartRecording, StaysOffWithAMessageWhereTheTemporaryFileCannotBeMade) {
  Acquiring program;
  program.host.files.readOnly = true;
  program.window.Registra.press();
  EXPECT_EQ(program.state.recordingActive, 0);
  EXPECT_EQ(program.state.recordingArmed, 0);
  EXPECT_EQ(program.state.acquisitionRunning, 1);
  EXPECT_EQ(program.window.Registra.backColour(), Colour::buttonFace);
  ASSERT_EQ(program.host.dialogs.shown.size(), 1U);
  EXPECT_EQ(program.host.dialogs.shown[0].text, "Impossibile registrare!\rImpossibile scrivere il file " +
                                                    recordings::temporary + "\rLa registrazione resta disattiva.");
}

TEST(StartRecording, KeepsWhatACrashLeftAndTellsWhere) {
  Acquiring program;
  const std::string left = "\"Verdi\",\"20/11/2026\",\"4canali\"\r\n" + recordings::block(100);
  program.host.files.content[recordings::temporary] = left;
  program.window.Registra.press();
  EXPECT_EQ(program.state.recordingActive, 1);
  ASSERT_EQ(program.host.dialogs.shown.size(), 1U);
  const std::string aside = program.state.setAsidePath;
  EXPECT_EQ(program.host.files.content[aside], left);
  EXPECT_NE(program.host.dialogs.shown[0].text.find(aside), std::string::npos);
}

TEST(StartRecording, DoesNotOverwriteALeftOverThatCannotBeSetAside) {
  Acquiring program;
  const std::string left = "\"Verdi\",\"20/11/2026\",\"4canali\"\r\n" + recordings::block(100);
  program.host.files.content[recordings::temporary] = left;
  program.host.files.unreadable.push_back(recordings::temporary);
  program.window.Registra.press();
  EXPECT_EQ(program.state.recordingActive, 0);
  EXPECT_EQ(program.host.files.content[recordings::temporary], left);
}

TEST(BeginNote, OpensTheBoxStampsTheNoteAndMarksTheStrip) {
  Acquiring program;
  program.state.blockCount = 7;
  program.window.noteBox.setText("vecchia");
  program.window.Annotax.press();
  EXPECT_TRUE(program.window.noteBox.enabled());
  EXPECT_EQ(program.window.noteBox.backColour(), Colour::yellow);
  EXPECT_EQ(program.window.noteBox.text(), "");
  EXPECT_EQ(program.window.noteBox.focusRequests(), 1);
  EXPECT_EQ(program.window.statusLabel.text(), "Scrivi una nota poi premi Invio");
  EXPECT_EQ(program.state.noteCount, 1);
  EXPECT_EQ(program.state.noteTimes[1], 7.0F);
  const platform::Mark line = program.window.Picture6.marks().back();
  EXPECT_EQ(line, (platform::Mark{platform::Mark::Kind::line, Colour::lightRed, 21, 1, 21, 13}));
}

TEST(BeginNote, InBlocks0And1HasTheTime2) {
  for (const int block : {0, 1, 2}) {
    Acquiring program;
    program.state.blockCount = block;
    program.window.Annotax.press();
    EXPECT_EQ(program.state.noteTimes[1], 2.0F) << block;
  }
}

TEST(BeginNote, DoesNothingWhileAFileIsOpen) {
  Acquiring program;
  program.state.openFilePath = "x";
  program.window.Annotax.press();
  EXPECT_EQ(program.state.noteCount, 0);
  EXPECT_FALSE(program.window.noteBox.enabled());
}

TEST(BeginNote, The61stIsRefusedInTheStatusLabel) {
  Acquiring program;
  for (int i = 1; i <= 60; ++i) program.window.Annotax.press();
  EXPECT_EQ(program.state.noteCount, 60);
  program.window.noteBox.setEnabled(false);
  program.window.Annotax.press();
  EXPECT_EQ(program.state.noteCount, 60);
  EXPECT_FALSE(program.window.noteBox.enabled());
  EXPECT_EQ(program.window.statusLabel.text(), "Massimo 60 note!");
  EXPECT_TRUE(program.host.faults.empty());
}

TEST(NoteKey, EnterStoresTheTextWhileRecordingAndClosesTheBox) {
  Acquiring program;
  program.window.Registra.press();
  program.window.Annotax.press();
  program.window.noteBox.type("occhi chiusi");
  program.window.noteBox.pressKey(13);
  EXPECT_EQ(program.state.noteTexts[1], "occhi chiusi");
  EXPECT_EQ(program.window.noteBox.text(), "");
  EXPECT_EQ(program.window.noteBox.backColour(), Colour::white);
  EXPECT_FALSE(program.window.noteBox.enabled());
  EXPECT_EQ(program.window.statusLabel.text(), "Registrazione Attiva");
}

TEST(NoteKey, WhileRecordingIsOffTheNoteIsCountedButItsTextNotStored) {
  Acquiring program;
  program.state.noteTexts[1] = "di prima";
  program.window.Annotax.press();
  program.window.noteBox.type("occhi chiusi");
  program.window.noteBox.pressKey(13);
  EXPECT_EQ(program.state.noteCount, 1);
  EXPECT_EQ(program.state.noteTexts[1], "di prima");
  EXPECT_EQ(program.window.statusLabel.text(), "Registrazione Disattiva");
  EXPECT_FALSE(program.window.noteBox.enabled());
}

TEST(NoteKey, EnterOnAnEmptyBoxAndOtherKeysDoNothing) {
  Acquiring program;
  program.window.Registra.press();
  program.window.Annotax.press();
  program.window.noteBox.pressKey(13);
  EXPECT_TRUE(program.window.noteBox.enabled());
  program.window.noteBox.type("a");
  program.window.noteBox.pressKey(10);
  program.window.noteBox.pressKey('a');
  EXPECT_TRUE(program.window.noteBox.enabled());
  EXPECT_EQ(program.state.noteTexts[1], "");
  EXPECT_EQ(program.window.noteBox.backColour(), Colour::yellow);
}

TEST(NoteBox, TakesNothingThatTheFileCannotHold) {
  Acquiring program;
  program.window.Annotax.press();
  program.window.noteBox.type("un \"tic\", qui\r\n perch\xC3\xA9");
  EXPECT_EQ(program.window.noteBox.text(), "un tic qui perch\xC3\xA9");
  program.window.fileNameBox.type("a/b\\c:d*e?f<g>h|i");
  EXPECT_EQ(program.window.fileNameBox.text(), "abcdefghi");
}

TEST(EndRecording, WithoutRecordingWritesNothing) {
  Acquiring program;
  const auto before = program.host.files.content;
  program.window.Stopd1.press();
  program.host.time.runUntil([&] { return program.state.intervalSelectable == 1; });
  auto after = program.host.files.content;
  after[folderLockPath] = before.at(folderLockPath);  // the lock's note is erased
  EXPECT_EQ(after, before);
}

TEST(EndRecording, RestoresTheButtonAndWaitsHalfASecond) {
  Acquiring program;
  program.window.Registra.press();
  program.state.recordingArmed = 0;
  const double start = program.host.time.seconds();
  program.state.endRecording();
  EXPECT_GE(program.host.time.seconds() - start, 0.5);
  EXPECT_LT(program.host.time.seconds() - start, 0.6);
  EXPECT_EQ(program.window.Registra.backColour(), program.state.startButtonColour);
  EXPECT_EQ(program.state.recordingActive, 0);
  EXPECT_TRUE(program.window.firstTrace.shows("Attendere.."));
}

TEST(EndRecording, WhatIsToBeToldComesAfterTheHalfSecond) {
  Acquiring program;
  program.window.Registra.press();
  program.host.time.runUntil([&] { return program.state.recordingArmed == 0; });
  program.acquireBlocks(1);
  program.host.files.freeSpace = 0;
  const double before = program.host.time.seconds();
  double told = 0;
  program.host.dialogs.whileOpen = [&] { told = told == 0 ? program.host.time.seconds() : told; };
  program.state.endRecording();
  ASSERT_FALSE(program.host.dialogs.shown.empty());
  EXPECT_GE(told - before, 0.5);
}

}  // namespace
}  // namespace korvinel
