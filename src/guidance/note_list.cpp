#include "guidance/note_list.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "eeg/block.h"
#include "frame/main_state.h"
#include "frame/main_window.h"
#include "guidance/at_hand.h"
#include "guidance/clock_text.h"

namespace korvinel::guidance {
namespace {

constexpr int stripWidth = 600;  // seconds

/// A file's times may be anything; one beyond the strip has no mark either.
int blockOf(float time) {
  const bool onStrip = time >= 1 && time * eeg::secondsPerBlock <= stripWidth;
  return onStrip ? static_cast<int>(std::lround(time)) : 0;
}

NoteLine noteOf(const MainState& state, int note) {
  NoteLine line;
  line.block = blockOf(state.noteTimes[note]);
  line.time = line.block == 0 ? "?" : clockText(line.block * eeg::secondsPerBlock);
  line.text = state.noteTexts[note];
  if (line.text.empty()) line.text = note == state.openNote ? "(si sta scrivendo)" : "(senza testo)";
  return line;
}

/// Lines of the empty panel that need not stay.
bool isIdle(const std::string& text) {
  return text.find("Eseguire questo programma") != std::string::npos ||
         text.find("Premere Start per cominciare") != std::string::npos;
}

NotesPlace besideMessages(const platform::Surface& panel) {
  const auto texts = panel.texts();
  if (std::all_of(texts.begin(), texts.end(), isIdle)) return NotesPlace::whole;
  const bool onlyLower = std::any_of(texts.begin(), texts.end(), [](const std::string& text) {
    return text.find("Nota non conservata") != std::string::npos;
  });
  return onlyLower ? NotesPlace::upper : NotesPlace::none;
}

}  // namespace

std::vector<NoteLine> noteList(const MainState& state) {
  std::vector<NoteLine> notes;
  if (!hasGraphs(atHand(state))) return notes;
  for (int note = 1; note <= state.noteCount; ++note) notes.push_back(noteOf(state, note));
  return notes;
}

std::string notesAt(const std::vector<NoteLine>& notes, int second, int reach) {
  std::string text;
  for (const NoteLine& note : notes) {
    if (note.block == 0 || std::abs(note.block * eeg::secondsPerBlock - second) > reach) continue;
    text += (text.empty() ? "" : "\n") + note.time + " " + note.text;
  }
  return text;
}

NotesPlace notesPlace(const MainState& state) {
  if (!hasGraphs(atHand(state)) || state.noteCount == 0) return NotesPlace::none;
  // "Display" is pressed after the summary of the file has been read.
  if (state.replayActive == 1) return NotesPlace::whole;
  return atHand(state) == AtHand::opened ? NotesPlace::none : besideMessages(state.window.messagePanel);
}

bool marksAreMissing(const MainState& state) { return state.replayActive == 1 && atHand(state) == AtHand::opened; }

bool sliderMayMove(const MainState& state) {
  return state.intervalSelectable == 1 && state.fileLoopRunning == 0 && !state.acquisitionPending();
}

std::string withQuickNote(const std::string& typed, const std::string& quick) {
  return typed.empty() ? quick : typed + " + " + quick;
}

bool noteIsOpen(const MainState& state) { return state.openNote != 0 && state.window.noteBox.enabled(); }

}  // namespace korvinel::guidance
