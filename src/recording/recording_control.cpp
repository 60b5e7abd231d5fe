#include "frame/main_state.h"
#include "frame/waiting.h"
#include "platform/dialogs.h"
#include "recording/conclusion.h"
#include "recording/data_paths.h"
#include "recording/file_header.h"
#include "values/code_page.h"

namespace korvinel {
namespace {

using platform::Colour;

bool inItalian(const MainState& state) { return state.shared.languageFlag == "Ita"; }

void showStatus(MainState& state, const char* text) {
  if (inItalian(state)) state.window.statusLabel.setText(text);
}

/// An examination that cannot be recorded is told at once, while it can still be repeated.
bool temporaryFileIsReady(MainState& state) {
  try {
    state.createTempFile();
    return true;
  } catch (const RuntimeError& fault) {
    state.host.dialogs.notice("Impossibile registrare!\r" + std::string(fault.what()) +
                              "\rLa registrazione resta disattiva.");
    return false;
  }
}

void tellOfSetAsideRecording(MainState& state) {
  if (state.setAsidePath.empty()) return;
  state.host.dialogs.notice(
      "Una registrazione precedente non era stata conclusa.\rI suoi dati sono conservati nel file\r" +
      state.setAsidePath);
}

void switchRecordingOff(MainState& state) {
  state.window.Registra.setBackColour(state.startButtonColour);
  state.recordingActive = state.recordingArmed = 0;
}

void closeNoteBox(MainState& state) {
  state.window.noteBox.setText("");
  state.window.noteBox.setBackColour(Colour::white);
  state.window.noteBox.setEnabled(false);
}

}  // namespace

void MainState::checkFileName() {
  fileNameExists = 0;
  std::string candidate = window.fileNameBox.text();
  // A name that already ends in QVD is checked as it stands, but recorded with a second ending.
  if (!candidate.ends_with("QVD")) candidate += ".QVD";
  for (const std::string& name : host.files.list(dataFolder, ".QVD"))
    if (upperCase(name) == upperCase(candidate)) fileNameExists = 1;
}

void MainState::startRecording() {
  if (acquisitionRunning == 0 || !openFilePath.empty() || recordingActive == 1) return;
  if (!temporaryFileIsReady(*this)) return tellOfSetAsideRecording(*this);
  recordingArmed = recordingActive = 1;
  window.Registra.setBackColour(Colour::yellow);
  window.statusLabel.setInk(Colour::lightRed);
  showStatus(*this, "Registrazione Attiva");
  tellOfSetAsideRecording(*this);
}

void MainState::endRecording() {
  if (recordingActive != 1) return;
  window.firstTrace.clear();
  if (inItalian(*this)) window.firstTrace.printAt(1, 1, Colour::white, "Attendere..");
  assembleDataFile();
  switchRecordingOff(*this);
  waitAtLeast(*this, 0.5);
  concludeRecording(*this);
  temporaryContent.clear();
  temporaryWritten = 0;
}

void MainState::beginNote() {
  if (!openFilePath.empty()) return;
  if (noteCount >= mostNotes) return showStatus(*this, "Massimo 60 note!");
  window.noteBox.setEnabled(true);
  window.noteBox.setBackColour(Colour::yellow);
  showStatus(*this, "Scrivi una nota poi premi Invio");
  const double x = blockCount * 3;
  window.Picture6.line(x, 1, x, 13, Colour::lightRed);
  window.noteBox.setText("");
  window.noteBox.requestFocus();
  noteCount += 1;
  noteTimes[noteCount] = static_cast<float>(blockCount < 2 ? 2 : static_cast<int>(blockCount));
  keepNotesAndNames();
}

void MainState::noteKey(int key) {
  constexpr int enter = 13;
  if (key != enter || window.noteBox.text().empty()) return;
  if (recordingActive == 1) noteTexts[noteCount] = window.noteBox.text();
  keepNotesAndNames();
  showStatus(*this, recordingActive == 1 ? "Registrazione Attiva" : "Registrazione Disattiva");
  closeNoteBox(*this);
}

}  // namespace korvinel
