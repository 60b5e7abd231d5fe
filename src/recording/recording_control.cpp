#include "frame/fault_text.h"
#include "frame/main_state.h"
#include "frame/main_window.h"
#include "frame/program_values.h"
#include "frame/waiting.h"
#include "platform/dialogs.h"
#include "platform/files.h"
#include "platform/platform.h"
#include "recording/conclusion.h"
#include "recording/data_paths.h"
#include "recording/notes.h"
#include "recording/recording_names.h"
#include "values/code_page.h"
#include "values/runtime_error.h"

namespace korvinel {
namespace {

using platform::Colour;

void showStatus(MainState& state, const char* text) {
  if (state.shared.inItalian()) state.window.statusLabel.setText(text);
}

void refuseRecording(MainState& state, const std::string& reason) {
  state.host.dialogs.notice("Impossibile registrare!\r" + reason + "\rLa registrazione resta disattiva.");
}

/// If the examination cannot be recorded, the operator learns it now, while it can still be repeated.
bool temporaryFileIsReady(MainState& state) {
  try {
    state.createTempFile();
    return true;
  } catch (const RuntimeError& fault) {
    refuseRecording(state, faultText(fault));
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
  lockNames(state, false);
  state.recordingActive = state.recordingArmed = 0;
}

}  // namespace

void MainState::checkFileName() {
  fileNameExists = 0;
  std::string candidate = window.fileNameBox.text();
  // A name that already ends in QVD is checked unchanged, but recorded with a second ending.
  if (!candidate.ends_with("QVD")) candidate += ".QVD";
  for (const std::string& name : host.files.list(dataFolder, ".QVD"))
    if (upperCase(name) == upperCase(candidate)) fileNameExists = 1;
}

void MainState::startRecording() {
  if (acquisitionRunning == 0 || !openFilePath.empty() || recordingActive == 1) return;
  // The data file may already be written; another recording would be appended to it under the same name.
  if (stopRequested == 1 || endRequested == 1) return refuseRecording(*this, "L'acquisizione sta terminando.");
  // The names may have been edited since Start. From here on they are fixed.
  if (!namesAreUsable()) return;
  takeNames();
  if (!temporaryFileIsReady(*this)) return tellOfSetAsideRecording(*this);
  lockNames(*this, true);
  recordingArmed = recordingActive = 1;
  window.Registra.setBackColour(Colour::yellow);
  window.statusLabel.setInk(Colour::lightRed);
  showStatus(*this, "Registrazione Attiva");
  tellOfSetAsideRecording(*this);
}

void MainState::endRecording() {
  if (recordingActive != 1) return;
  window.firstTrace.clear();
  if (shared.inItalian()) window.firstTrace.printAt(1, 1, Colour::white, "Attendere..");
  takeOpenNote(*this);
  takeFreeName(*this);
  assembleDataFile();
  switchRecordingOff(*this);
  waitAtLeast(*this, 0.5);
  concludeRecording(*this);
  temporaryContent.clear();
  temporaryWritten = 0;
}

}  // namespace korvinel
