#include "recording/notes.h"

#include "eeg/block.h"
#include "frame/main_state.h"
#include "frame/main_window.h"
#include "frame/program_values.h"
#include "platform/dialogs.h"
#include "platform/platform.h"
#include "recording/file_header.h"
#include "recording/safe_keeping.h"
#include "values/code_page.h"

namespace korvinel {
namespace {

using platform::Colour;

void showStatus(MainState& state, const std::string& text) {
  if (state.shared.inItalian()) state.window.statusLabel.setText(text);
}

void closeNoteBox(MainState& state) {
  state.openNote = 0;
  state.window.noteBox.setText("");
  state.window.noteBox.setBackColour(Colour::white);
  state.window.noteBox.setEnabled(false);
}

void countNote(MainState& state) {
  state.noteCount += 1;
  state.noteTimes[state.noteCount] = static_cast<float>(state.blockCount < 2 ? 2 : static_cast<int>(state.blockCount));
  state.openNote = state.noteCount;
}

/// Stores the text of the note box. A text typed without "Annota", in a box that an opened file has left enabled,
/// becomes a note of the current block. Returns false, and shows why, if the text must stay in the box.
bool storeNote(MainState& state, const std::string& text) {
  if (const std::string letters = lettersOutsidePage(text); !letters.empty() && state.shared.inItalian()) {
    showStatus(state, "La nota non può contenere: " + letters);
    return false;
  }
  if (state.openNote == 0 && state.noteCount >= mostNotes) {
    showStatus(state, "Massimo 60 note!");
    return false;
  }
  if (state.openNote == 0) countNote(state);
  state.noteTexts[state.openNote] = text;
  state.keepNotesAndNames();
  return true;
}

/// Handles the text in the box when "Annota" is pressed again. Returns whether a new note may be begun.
bool takeTextBefore(MainState& state) {
  const std::string text = state.window.noteBox.text();
  if (text.empty()) return true;
  if (state.recordingActive == 1) return storeNote(state, text);
  state.tellNoteIsDropped(text);
  return true;
}

}  // namespace

void MainState::beginNote() {
  if (!openFilePath.empty() || assembling == 1) return;
  if (!takeTextBefore(*this)) return;
  if (noteCount >= mostNotes) return showStatus(*this, "Massimo 60 note!");
  window.noteBox.setEnabled(true);
  window.noteBox.setBackColour(Colour::yellow);
  showStatus(*this, "Scrivi una nota poi premi Invio");
  const double x = blockCount * eeg::secondsPerBlock;
  window.Picture6.line(x, 1, x, 13, Colour::lightRed);
  window.noteBox.setText("");
  window.noteBox.requestFocus();
  countNote(*this);
  keepNotesAndNames();
}

void MainState::noteKey(int key) {
  constexpr int enter = 13;
  const std::string text = window.noteBox.text();
  if (key != enter || text.empty()) return;
  const bool isKept = recordingActive == 1 && assembling == 0;  // the notes of a file being written are already in it
  if (isKept && !storeNote(*this, text)) return;
  showStatus(*this, recordingActive == 1 ? "Registrazione Attiva" : "Registrazione Disattiva");
  closeNoteBox(*this);
  if (!isKept) tellNoteIsDropped(text);
}

std::vector<std::string> MainState::notesToCarryOver() const {
  std::vector<std::string> texts;
  // Before "Registra" no text is stored: any text here is then an opened file's.
  for (int note = 1; recordingActive == 1 && note <= noteCount; ++note)
    if (note != openNote && !noteTexts[note].empty()) texts.push_back(noteTexts[note]);
  if (openNote != 0) texts.emplace_back();
  return texts;
}

void MainState::carryNotesOver(const std::vector<std::string>& texts) {
  const bool noteIsOpen = openNote != 0;
  for (const std::string& text : texts) {
    countNote(*this);
    noteTexts[noteCount] = text;
  }
  if (!noteIsOpen) openNote = 0;
}

void MainState::tellNoteIsDropped(const std::string& text) {
  if (text.empty() || !shared.inItalian()) return;
  if (!openFilePath.empty())
    return host.dialogs.notice("La nota non è stata conservata:\r" + text +
                               "\rLe note si scrivono durante una registrazione.");
  constexpr double top = 150, left = 2;
  auto& panel = window.messagePanel;
  panel.box(1, top, panel.width() - 1, top + 3 * panel.lineHeight(), Colour::white);
  panel.printAt(left, top, Colour::lightRed, " Nota non conservata, perché non si registra:");
  panel.printAt(left, top + panel.lineHeight(), Colour::black, " " + text);
}

void takeOpenNote(MainState& state) {
  if (state.recordingActive != 1) return;
  const std::string text = state.window.noteBox.text();
  if (!text.empty() && state.openNote == 0 && state.noteCount >= mostNotes) {
    addNotice(state, "L'esame ha già 60 note; questa non è nel file:\r" + text);
  } else if (!text.empty()) {
    if (state.openNote == 0) countNote(state);
    state.noteTexts[state.openNote] = text;
    if (const std::string letters = lettersOutsidePage(text); !letters.empty())
      addNotice(state, "L'ultima nota è nel file con '?' al posto di " + letters + ":\r" + text);
  }
  if (state.openNote != 0 || !text.empty()) closeNoteBox(state);
  state.keepNotesAndNames();
}

}  // namespace korvinel
