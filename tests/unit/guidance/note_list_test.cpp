#include "guidance/note_list.h"

#include <gtest/gtest.h>

#include "opened_file.h"

namespace korvinel::guidance {
namespace {

FileProgram withNotes() { return FileProgram(recordings::file(10, {{2, "occhi chiusi"}, {7, ""}, {400, "fuori"}})); }

TEST(NoteList, OfAnOpenedFileInItsOwnOrder) {
  FileProgram program = withNotes();
  EXPECT_TRUE(noteList(program.state).empty());
  program.open();
  const std::vector<NoteLine> expected = {{2, "0:06", "occhi chiusi"}, {7, "0:21", "(senza testo)"}, {0, "?", "fuori"}};
  EXPECT_EQ(noteList(program.state), expected);
}

TEST(NoteList, OfNobodyOnceTheExaminationIsGone) {
  FileProgram program = withNotes();
  program.open();
  program.window.Openx.press();
  EXPECT_TRUE(noteList(program.state).empty());
  EXPECT_EQ(notesPlace(program.state), NotesPlace::none);
}

TEST(NoteList, ANoteBeingWrittenIsInItAlready) {
  HeadlessProgram program;
  program.startAcquisition();
  program.acquireBlocks(1);
  program.window.Registra.press();
  program.acquireBlocks(3);
  EXPECT_FALSE(noteIsOpen(program.state));
  program.window.Annotax.press();
  EXPECT_TRUE(noteIsOpen(program.state));
  EXPECT_EQ(noteList(program.state).back().text, "(si sta scrivendo)");
  program.window.noteBox.type(withQuickNote(program.window.noteBox.text(), "tosse"));
  program.window.noteBox.type(withQuickNote(program.window.noteBox.text(), "movimento"));
  program.window.noteBox.pressKey(13);
  EXPECT_EQ(noteList(program.state).back().text, "tosse + movimento");
  EXPECT_FALSE(noteIsOpen(program.state));
}

TEST(NoteList, ATextIsFoundAtItsMark) {
  const std::vector<NoteLine> notes = {{2, "0:06", "uno"}, {2, "0:06", "due"}, {7, "0:21", "tre"}, {0, "?", "fuori"}};
  EXPECT_EQ(notesAt(notes, 6, 0), "0:06 uno\n0:06 due");
  EXPECT_EQ(notesAt(notes, 23, 2), "0:21 tre");
  EXPECT_EQ(notesAt(notes, 24, 2), "");
  EXPECT_EQ(notesAt(notes, 0, 2), "");
}

TEST(NoteList, LivesOverTheMessagesWhileTheseHaveNothingToSay) {
  HeadlessProgram program;
  program.startAcquisition();
  program.acquireBlocks(1);
  EXPECT_EQ(notesPlace(program.state), NotesPlace::none);
  program.window.Annotax.press();
  EXPECT_EQ(notesPlace(program.state), NotesPlace::whole);
  program.window.noteBox.type("perduta");
  program.window.noteBox.pressKey(13);  // nothing is being recorded
  EXPECT_EQ(notesPlace(program.state), NotesPlace::upper);
  program.window.messagePanel.print("altro");
  EXPECT_EQ(notesPlace(program.state), NotesPlace::upper);
  program.window.messagePanel.clear();
  program.window.messagePanel.print("altro");
  EXPECT_EQ(notesPlace(program.state), NotesPlace::none);
}

TEST(NoteList, OfAFileWaitsUntilItsSummaryHasBeenRead) {
  FileProgram program = withNotes();
  program.open();
  EXPECT_EQ(notesPlace(program.state), NotesPlace::none);
  EXPECT_FALSE(marksAreMissing(program.state));
  program.window.Displayx.press();
  EXPECT_EQ(notesPlace(program.state), NotesPlace::whole);
  EXPECT_TRUE(marksAreMissing(program.state));
}

TEST(NoteList, MovesTheSliderOnlyInAWholeExamination) {
  FileProgram program = withNotes();
  EXPECT_FALSE(sliderMayMove(program.state));
  program.open();
  EXPECT_TRUE(sliderMayMove(program.state));
  program.host.time.when([&] { return program.state.replayActive == 1 && program.state.blockCount == 2; },
                         [&] { EXPECT_FALSE(sliderMayMove(program.state)); });
  program.window.Displayx.press();
  EXPECT_TRUE(sliderMayMove(program.state));
}

}  // namespace
}  // namespace korvinel::guidance
