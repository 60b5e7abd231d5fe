#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "acquisition_end.h"
#include "headless_program.h"
#include "recordings.h"

namespace korvinel {
namespace {

using platform::Choice;
using testing::HasSubstr;

const std::string lockPath = recordings::folder + "Korvinel.lock";

/// Two programs on one disk, each with its own instrument.
struct TwoPrograms : testing::Test {
  HeadlessProgram first;
  HeadlessProgram second{&first};

  void SetUp() override {
    for (int n = 1; n <= 100; ++n) {
      first.host.instrument.blocks.push_back(std::string(1024, static_cast<char>(recordings::levelOf(n))));
      second.host.instrument.blocks.push_back(std::string(1024, '\x50'));
    }
    second.host.machine.self = {"bruno", "studio-2", 815};
  }

  static void record(HeadlessProgram& program) {
    program.window.Registra.press();
    program.host.time.runUntil([&] { return program.state.recordingArmed == 0; });
  }
  static void stop(HeadlessProgram& program) {
    program.window.Stopd1.press();
    waitForEnd(program);
    program.host.time.runFor(0.1);
  }
};

TEST_F(TwoPrograms, OnlyOneAcquiresAndItsRecordingIsItsOwn) {
  first.startAcquisition("rossi", "Rossi");
  first.acquireBlocks(1);
  record(first);
  first.acquireBlocks(1);
  second.startAcquisition("bianchi", "Bianchi");
  EXPECT_EQ(second.state.acquisitionRunning, 0);
  EXPECT_TRUE(second.host.serialPort.history().empty());
  second.window.Registra.press();
  first.acquireBlocks(2);
  stop(first);
  const std::string& file = first.host.files.content[recordings::folder + "rossi.QVD"];
  EXPECT_EQ(file.size(), recordings::header().size() + 4 * 1036);
  EXPECT_EQ(file.find('\x50', recordings::header().size()), std::string::npos);
  for (const auto& [path, bytes] : first.host.files.content)
    EXPECT_THAT(path, testing::Not(HasSubstr("Tempor1"))) << path;
}

TEST_F(TwoPrograms, TheSecondIsToldWhoAcquiresSinceWhen) {
  first.startAcquisition("rossi", "Rossi");
  second.startAcquisition("bianchi", "Bianchi");
  EXPECT_THAT(lastBox(second), HasSubstr("già in corso un esame:\rutente anna, computer studio-1, processo 4711,\r"
                                         "dalle 10:00 del 21/11/2026\r"));
  EXPECT_THAT(lastBox(second), testing::Not(HasSubstr("Rossi")));
  EXPECT_EQ(second.host.dialogs.shown.back().kind, "notice");
}

TEST_F(TwoPrograms, TheNoteNamesNoPatient) {
  first.startAcquisition("rossi", "Rossi");
  EXPECT_THAT(first.host.files.content[lockPath],
              testing::AllOf(HasSubstr("anna"), testing::Not(HasSubstr("Rossi")), testing::Not(HasSubstr("rossi"))));
}

TEST_F(TwoPrograms, WhatIsNoNoteIsNotShown) {
  first.startAcquisition("rossi", "Rossi");
  for (const char* odd : {"", "\n\n\n", "\x1b[2J", "a\tb"}) {
    first.host.files.content[lockPath] = odd;
    second.startAcquisition("bianchi", "Bianchi");
    EXPECT_THAT(lastBox(second), HasSubstr("già in corso un esame:\run altro programma\r"));
  }
}

TEST_F(TwoPrograms, TheSecondOpensAndReplaysMeanwhile) {
  first.host.files.content[recordings::folder + "vecchio.QVD"] = recordings::file(4);
  first.startAcquisition("rossi", "Rossi");
  record(first);
  second.state.startUp();
  second.host.dialogs.files = {recordings::folder + "vecchio.QVD", recordings::folder + "vecchio.QVD"};
  second.window.Openx.press();
  EXPECT_EQ(second.state.intervalSelectable, 1);
  second.window.Displayx.press();
  second.window.Stampa.press();
  for (const auto& box : second.host.dialogs.shown) EXPECT_THAT(box.text, testing::Not(HasSubstr("già in corso")));
}

TEST_F(TwoPrograms, TheSecondMayStartOnceTheFirstHasStopped) {
  first.startAcquisition("rossi", "Rossi");
  first.acquireBlocks(1);
  record(first);
  first.acquireBlocks(1);
  stop(first);
  second.startAcquisition("bianchi", "Bianchi");
  EXPECT_EQ(second.state.acquisitionRunning, 1);
}

TEST_F(TwoPrograms, TheFolderIsFreeWhileTheWarningAfterStopIsOpenButNotBeforeTheFileIsThere) {
  first.startAcquisition("rossi", "Rossi");
  first.acquireBlocks(1);
  record(first);
  first.acquireBlocks(1);
  bool heldInAssembling = false;
  bool freeInWarning = false;
  first.host.time.when([&] { return first.state.assembling == 1; },
                       [&] { heldInAssembling = first.state.folderLock != nullptr; });
  first.host.dialogs.whileOpen = [&] { freeInWarning = first.state.folderLock == nullptr; };
  stop(first);
  EXPECT_TRUE(heldInAssembling);
  EXPECT_TRUE(freeInWarning);
}

TEST_F(TwoPrograms, AProgramThatEndsLetsGo) {
  {
    HeadlessProgram third(&first);
    third.startAcquisition("verdi", "Verdi");
    second.startAcquisition("bianchi", "Bianchi");
    EXPECT_EQ(second.state.acquisitionRunning, 0);
  }
  second.startAcquisition("bianchi", "Bianchi");
  EXPECT_EQ(second.state.acquisitionRunning, 1);
}

TEST_F(TwoPrograms, ThreeExaminationsInTurn) {
  for (const char* name : {"uno", "due", "tre"}) {
    first.startAcquisition(name, "Rossi");
    first.acquireBlocks(1);
    second.startAcquisition(name, "Bianchi");
    EXPECT_EQ(second.state.acquisitionRunning, 0) << name;
    stop(first);
    second.startAcquisition(std::string(name) + "-2", "Bianchi");
    second.acquireBlocks(1);
    EXPECT_EQ(second.state.acquisitionRunning, 1) << name;
    stop(second);
  }
}

TEST(FolderWithoutLocks, IsToldAndMayBeUsedAllTheSame) {
  for (const Choice choice : {Choice::cancel, Choice::ok}) {
    HeadlessProgram program;
    program.host.files.offersLocks = false;
    program.host.dialogs.choices.push_back(choice);
    program.startAcquisition();
    EXPECT_EQ(program.host.dialogs.shown.front().kind, "question");
    EXPECT_THAT(program.host.dialogs.shown.front().text, HasSubstr("i dati di due pazienti si mescolano"));
    EXPECT_EQ(program.state.acquisitionRunning, choice == Choice::ok ? 1 : 0);
    EXPECT_EQ(program.host.serialPort.history().empty(), choice == Choice::cancel);
  }
}

TEST(FolderThatCannotBeWritten, IsToldAtStartAndSignalsCanBeSeen) {
  HeadlessProgram program;
  program.host.files.readOnly = true;
  program.host.dialogs.choices.push_back(Choice::ok);
  program.startAcquisition();
  EXPECT_THAT(program.host.dialogs.shown.front().text,
              testing::StartsWith("Nella cartella dei dati non si può scrivere:\r"));
  EXPECT_EQ(program.state.acquisitionRunning, 1);
  program.window.Registra.press();
  EXPECT_THAT(program.host.dialogs.shown.back().text, HasSubstr("Impossibile registrare!"));
}

TEST(FolderWithoutLocks, NothingElseBeginsWhileTheQuestionIsOpen) {
  HeadlessProgram program;
  program.host.files.offersLocks = false;
  program.host.dialogs.choices.push_back(Choice::ok);
  int depth = 0;
  program.host.dialogs.whileOpen = [&] {
    if (++depth == 1) program.window.Starts1.press();
  };
  program.startAcquisition();
  EXPECT_EQ(program.host.dialogs.shown.size(), 1U);
  EXPECT_EQ(program.state.acquisitionRunning, 1);
}

}  // namespace
}  // namespace korvinel
