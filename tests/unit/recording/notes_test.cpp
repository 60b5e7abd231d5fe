#include <gtest/gtest.h>

#include "opened_file.h"

namespace korvinel {
namespace {

using platform::Colour;
using recordings::Notes;

struct NotesOfAnExamination : testing::Test {
  HeadlessProgram program;
  MainWindow& window = program.window;
  MainState& state = program.state;

  void acquire() {
    program.startAcquisition();
    program.acquireBlocks(1);
  }
  void waitForRestart() {
    program.host.time.runUntil([&] { return state.recordingArmed == 0; });
  }
  void record() {
    acquire();
    window.Registra.press();
    waitForRestart();
  }
  void beginNote(const std::string& text) {
    window.Annotax.press();
    window.noteBox.type(text);
  }
  void confirm() { window.noteBox.pressKey(13); }
  void waitForEnd() {
    program.host.time.runUntil([&] { return state.intervalSelectable == 1; });
  }
  void stop() {
    window.Stopd1.press();
    waitForEnd();
  }
  void expectFileWith(const Notes& notes) {
    const std::string& file = program.host.files.content[recordings::folder + "prova.QVD"];
    const std::string header = recordings::header(notes);
    EXPECT_EQ(file.substr(0, header.size()), header);
  }
};

TEST_F(NotesOfAnExamination, OneBeingTypedAtStopIsTakenWithItsTime) {
  record();
  program.acquireBlocks(3);
  beginNote("occhi chi");
  program.acquireBlocks(1);
  stop();
  expectFileWith({{3, "occhi chi"}});
  EXPECT_FALSE(window.noteBox.enabled());
  EXPECT_EQ(window.noteBox.text(), "");
  EXPECT_EQ(window.noteBox.backColour(), Colour::white);
}

TEST_F(NotesOfAnExamination, OneBeingTypedAtTheBlockLimitIsTaken) {
  record();
  program.acquireBlocks(2);
  beginNote("fine");
  waitForEnd();
  expectFileWith({{2, "fine"}});
}

TEST_F(NotesOfAnExamination, OneBeingTypedWhenTheProgramEndsIsTaken) {
  const std::vector<std::pair<const char*, void (*)(HeadlessProgram&)>> ends = {
      {"End", [](HeadlessProgram& p) { p.window.Endx1.press(); }},
      {"closing", [](HeadlessProgram& p) { p.host.edge.run([&] { static_cast<void>(p.state.closeWindow()); }); }},
      {"Stop, End", [](HeadlessProgram& p) { p.window.Stopd1.press(), p.window.Endx1.press(); }},
      {"Cancel", [](HeadlessProgram& p) { p.host.instrument.goSilent(); }}};
  for (const auto& [name, end] : ends) {
    SCOPED_TRACE(name);
    HeadlessProgram other;
    other.startAcquisition();
    other.acquireBlocks(1);
    other.window.Registra.press();
    other.acquireBlocks(3);
    other.window.Annotax.press();
    other.window.noteBox.type("a met");
    end(other);
    other.host.time.runFor(20);
    EXPECT_TRUE(other.host.edge.ended());
    EXPECT_NE(other.host.files.content[recordings::folder + "prova.QVD"].find(",\"a met\"\r\n"), std::string::npos);
  }
}

TEST_F(NotesOfAnExamination, OneBeingTypedAtTheRestartGoesOnInTheNewCount) {
  acquire();
  program.acquireBlocks(4);
  beginNote("crisi i");
  window.Registra.press();
  waitForRestart();
  EXPECT_TRUE(window.noteBox.enabled());
  EXPECT_EQ(window.noteBox.text(), "crisi i");
  EXPECT_EQ(window.noteBox.backColour(), Colour::yellow);
  EXPECT_EQ(state.noteCount, 1);
  program.acquireBlocks(5);
  window.noteBox.type("crisi iniziale");
  confirm();
  beginNote("fine crisi");
  confirm();
  stop();
  expectFileWith({{2, "crisi iniziale"}, {5, "fine crisi"}});
}

TEST_F(NotesOfAnExamination, OneConfirmedInTheTurnThatRestartsIsKept) {
  acquire();
  program.acquireBlocks(3);
  beginNote("prima");
  confirm();
  window.Registra.press();
  beginNote("seconda");
  confirm();
  beginNote("terza");
  waitForRestart();
  window.noteBox.type("terza, finita");
  confirm();
  stop();
  expectFileWith({{2, "seconda"}, {2, "terza finita"}});
}

TEST_F(NotesOfAnExamination, OneBegunInTheHandshakeGoesOnInTheCount) {
  program.host.time.after(2, [&] { beginNote("elettrodo T5"); });
  program.startAcquisition();
  window.Registra.press();
  program.acquireBlocks(1);
  confirm();
  stop();
  expectFileWith({{2, "elettrodo T5"}});
}

TEST_F(NotesOfAnExamination, TheRestartLeavesAClosedBoxClosed) {
  record();
  EXPECT_EQ(state.noteCount, 0);
  EXPECT_EQ(state.openNote, 0);
  EXPECT_FALSE(window.noteBox.enabled());
}

TEST_F(NotesOfAnExamination, AnotherAnnotaTakesTheTextBefore) {
  record();
  program.acquireBlocks(2);
  beginNote("prima");
  program.acquireBlocks(2);
  beginNote("seconda");
  confirm();
  stop();
  expectFileWith({{2, "prima"}, {4, "seconda"}});
}

TEST_F(NotesOfAnExamination, The61stAnnotaTakesTheSixtiethText) {
  record();
  for (int note = 1; note <= 60; ++note) beginNote("n" + std::to_string(note));
  window.Annotax.press();
  EXPECT_EQ(state.noteTexts[60], "n60");
  EXPECT_EQ(state.noteCount, 60);
  EXPECT_EQ(window.statusLabel.text(), "Massimo 60 note!");
  stop();
  Notes notes;
  for (int note = 1; note <= 60; ++note) notes.emplace_back(2, "n" + std::to_string(note));
  expectFileWith(notes);
}

TEST_F(NotesOfAnExamination, OneWithLettersThatTheFileLacksStaysInTheBoxUntilItIsMended) {
  record();
  beginNote("Ngọc → sonno");
  confirm();
  EXPECT_EQ(window.statusLabel.text(), "La nota non può contenere: ọ, →");
  EXPECT_EQ(window.noteBox.text(), "Ngọc → sonno");
  EXPECT_TRUE(window.noteBox.enabled());
  EXPECT_EQ(state.noteTexts[1], "");
  EXPECT_TRUE(program.host.dialogs.shown.empty());
  window.Annotax.press();
  EXPECT_EQ(state.noteCount, 1);
  EXPECT_EQ(window.noteBox.text(), "Ngọc → sonno");
  window.noteBox.type("Ngoc: sonno");
  confirm();
  EXPECT_EQ(window.statusLabel.text(), "Registrazione Attiva");
  stop();
  expectFileWith({{2, "Ngoc: sonno"}});
}

TEST_F(NotesOfAnExamination, OneWithSuchLettersAtTheEndIsTakenAndTheyAreTold) {
  record();
  beginNote("Ngọc");
  stop();
  expectFileWith({{2, "Ng?c"}});
  ASSERT_EQ(program.host.dialogs.shown.size(), 2U);
  EXPECT_EQ(program.host.dialogs.shown[0].text, "L'ultima nota è nel file con '?' al posto di ọ:\rNgọc");
}

TEST_F(NotesOfAnExamination, InAnotherLanguageNothingIsWrittenAboutThem) {
  record();
  program.shared.languageFlag = "Eng";
  const std::string status = window.statusLabel.text();
  beginNote("Ngọc");
  confirm();
  EXPECT_EQ(state.noteTexts[1], "Ngọc");
  state.noteCount = 60;
  window.Annotax.press();
  EXPECT_EQ(window.statusLabel.text(), status);
  state.tellNoteIsDropped("sonno");
  EXPECT_FALSE(window.messagePanel.shows(" sonno"));
  EXPECT_TRUE(program.host.dialogs.shown.empty());
}

TEST_F(NotesOfAnExamination, TwoNoticesAboutOneRecordingAreLinesOfOneBox) {
  record();
  program.host.files.content[recordings::folder + "prova.QVD"] = "x";
  beginNote("Ngọc");
  stop();
  ASSERT_EQ(program.host.dialogs.shown.size(), 2U);
  EXPECT_EQ(program.host.dialogs.shown[0].text,
            "L'ultima nota è nel file con '?' al posto di ọ:\rNgọc\r"
            "Durante la registrazione è comparso un altro file di nome\rprova.QVD\r"
            "Il nome di questo esame è\rprova (2).QVD");
}

TEST_F(NotesOfAnExamination, WhileRecordingIsOffTheTextIsShownAsNotKept) {
  acquire();
  beginNote("occhi chiusi");
  confirm();
  EXPECT_EQ(window.statusLabel.text(), "Registrazione Disattiva");
  EXPECT_TRUE(window.messagePanel.shows(" Nota non conservata, perché non si registra:"));
  EXPECT_TRUE(window.messagePanel.shows(" occhi chiusi"));
  beginNote("occhi aperti");
  window.Annotax.press();
  EXPECT_TRUE(window.messagePanel.shows(" occhi aperti"));
  EXPECT_FALSE(window.messagePanel.shows(" occhi chiusi"));
  EXPECT_TRUE(program.host.dialogs.shown.empty());
}

TEST_F(NotesOfAnExamination, ATextThatStartClearsIsShownAsNotKept) {
  state.startUp();
  beginNote("prima di Start");
  program.startAcquisition();
  EXPECT_EQ(window.noteBox.text(), "");
  EXPECT_TRUE(window.messagePanel.shows(" prima di Start"));
}

TEST_F(NotesOfAnExamination, OneLeftOpenWithoutARecordingIsNoneOfTheNext) {
  const std::string nobodysNotes = recordings::header();
  acquire();
  beginNote("");
  stop();
  window.Starts1.press();
  program.acquireBlocks(1);
  EXPECT_EQ(state.noteCount, 0);
  window.Registra.press();
  waitForRestart();
  program.acquireBlocks(2);
  stop();
  const std::string& file = program.host.files.content[recordings::folder + "prova.QVD"];
  EXPECT_EQ(file.substr(0, nobodysNotes.size()), nobodysNotes);
}

TEST_F(NotesOfAnExamination, NoneIsBegunWhileTheFileIsWritten) {
  record();
  beginNote("ultima");
  program.host.time.when([&] { return state.assembling == 1; }, [&] { window.Annotax.press(); });
  stop();
  expectFileWith({{2, "ultima"}});
  EXPECT_FALSE(window.noteBox.enabled());
}

TEST(NotesOfAnOpenedFile, TypingOneIsToldNotToBeKept) {
  FileProgram program;
  program.open();
  ASSERT_TRUE(program.window.noteBox.enabled());
  program.window.noteBox.type("aggiunta");
  program.window.noteBox.pressKey(13);
  ASSERT_EQ(program.host.dialogs.shown.size(), 2U);
  EXPECT_EQ(program.host.dialogs.shown.back().text,
            "La nota non è stata conservata:\raggiunta\rLe note si scrivono durante una registrazione.");
  EXPECT_EQ(program.window.noteBox.text(), "");
  EXPECT_FALSE(program.window.noteBox.enabled());
  EXPECT_EQ(program.window.statusLabel.text(), "Registrazione Disattiva");
}

TEST(NotesOfAnOpenedFile, ATextThatTheReplayClearsIsTold) {
  FileProgram program;
  program.open();
  program.window.noteBox.type("aggiunta");
  program.host.time.after(1, [&] { program.window.Stopd1.press(); });
  program.window.Displayx.press();
  EXPECT_EQ(program.window.noteBox.text(), "");
  ASSERT_EQ(program.host.dialogs.shown.size(), 2U);
  EXPECT_TRUE(program.host.dialogs.shown.back().text.starts_with("La nota non è stata conservata:\raggiunta\r"));
}

/// After a file was open, the note box accepts text without "Annota".
struct BoxLeftEnabled : FileProgram {
  BoxLeftEnabled() {
    open();
    window.Stopd1.press();
    window.fileNameBox.type("prova");
    window.Starts1.press();
    acquireBlocks(1);
    window.Registra.press();
    host.time.runUntil([&] { return state.recordingArmed == 0; });
    acquireBlocks(3);
  }
  std::string fileAfterStop() {
    window.Stopd1.press();
    host.time.runUntil([&] { return state.intervalSelectable == 1; });
    return host.files.content[recordings::folder + "prova.QVD"];
  }
};

TEST(NoteWithoutAnnota, IsANoteOfTheMomentOfItsConfirmation) {
  BoxLeftEnabled program;
  program.window.noteBox.type("sonno");
  program.window.noteBox.pressKey(13);
  EXPECT_TRUE(program.fileAfterStop().starts_with(recordings::header({{3, "sonno"}})));
}

TEST(NoteWithoutAnnota, IsTakenAtTheEndToo) {
  BoxLeftEnabled program;
  program.window.noteBox.type("sonno");
  program.acquireBlocks(1);
  EXPECT_TRUE(program.fileAfterStop().starts_with(recordings::header({{5, "sonno"}})));
}

TEST(NoteWithoutAnnota, ConfirmedWhileTheFileIsWrittenIsShownAsNotKept) {
  BoxLeftEnabled program;
  program.host.time.when([&] { return program.state.assembling == 1; },
                         [&] {
                           program.window.noteBox.type("tardi");
                           program.window.noteBox.pressKey(13);
                         });
  EXPECT_TRUE(program.fileAfterStop().starts_with(recordings::header()));
  EXPECT_TRUE(program.window.messagePanel.shows(" tardi"));
}

TEST(NoteWithoutAnnota, BeyondTheSixtiethIsToldAndNotSwallowed) {
  BoxLeftEnabled program;
  program.state.noteCount = 60;
  program.window.noteBox.type("sonno");
  program.window.noteBox.pressKey(13);
  EXPECT_EQ(program.window.statusLabel.text(), "Massimo 60 note!");
  EXPECT_EQ(program.window.noteBox.text(), "sonno");
  program.host.dialogs.shown.clear();
  static_cast<void>(program.fileAfterStop());
  EXPECT_EQ(program.host.dialogs.shown.front().text, "L'esame ha già 60 note; questa non è nel file:\rsonno");
}

}  // namespace
}  // namespace korvinel
