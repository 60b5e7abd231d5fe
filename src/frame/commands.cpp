#include "eeg/block.h"
#include "frame/held_flag.h"
#include "frame/main_state.h"
#include "frame/main_window.h"
#include "frame/program_values.h"
#include "platform/dialogs.h"
#include "platform/files.h"
#include "platform/platform.h"
#include "platform/program_end.h"
#include "platform/timing.h"
#include "values/code_page.h"
#include "values/number_text.h"

namespace korvinel {
namespace {

using platform::Colour;

void clearForStart(MainState& state) {
  state.window.noteBox.setText("");
  state.openFilePath.clear();
  state.openFileTitle.clear();
  state.nextFileCommand = FileCommand::none;
  state.intervalSelectable = state.recordingArmed = state.linkReady = state.endRequested = 0;
  state.stopRequested = state.acquisitionRunning = state.recordingActive = 0;
  state.messageAnswer = 0;
  state.openNote = 0;  // a note left open without a recording; its text is cleared too
  state.lastRecording = {};
  state.readHandle.reset();
  state.window.startPicture.setVisible(false);
  state.host.tickTimer.setEnabled(false);
  state.host.pauseTimer.setEnabled(false);
}

/// Shows what is missing; returns false, as the command may not continue.
bool refuse(MainState& state, const char* message) {
  state.host.dialogs.notice(message);
  return false;
}

bool startIsAllowed(MainState& state) {
  if (!state.shared.inItalian()) return true;
  if (state.intervalSelectable == 1 && state.stopRequested == 0) return refuse(state, "Premere prima Stop!");
  if (!isBlank(state.window.fileNameBox.text())) return true;
  refuse(state, "Scrivere nome del file!");
  state.window.fileNameBox.requestFocus();
  return false;
}

/// While it asks, the start counts as under way, so that nothing else can begin.
bool folderIsReserved(MainState& state) {
  const HeldFlag pending(state.linkPending);
  return state.reserveDataFolder();
}

void showEndOfRecording(MainState& state) {
  state.window.firstTrace.clear();
  if (state.shared.inItalian()) state.window.firstTrace.printAt(0, 0, Colour::white, "Fine della registrazione!");
  state.window.statusLabel.setInk(Colour::black);
  if (state.shared.inItalian()) state.window.statusLabel.setText("Registrazione Disattiva");
}

void handBlockRangeOn(MainState& state) {
  state.shared.fileBlockCount = state.blockCount;
  state.shared.replayStartBlock = 1;
  state.shared.analysisFirstBlock = 1;
  state.shared.analysisLastBlock = state.blockCount;
}

/// Whether anything will still check `endRequested`: a turn, or a block of a file.
bool endIsLookedAt(const MainState& state) { return state.acquisitionPending() || state.fileLoopRunning == 1; }

void warnOfShortRecordings(MainState& state) {
  state.headerText1 = "Attenzione: per una Analisi affidabile \r";
  state.headerText2 = "occorrono almeno 7 minuti di dati eeg!\r";
  state.headerText3 = "Per analisi finale, premere Analisi";
  if (state.stopRequested == 1) state.host.dialogs.notice(state.headerText1 + state.headerText2 + state.headerText3);
}

}  // namespace

void MainState::startCommand() {
  if (acquisitionRunning == 1 || linkPending == 1) return;
  // Between Stop and the turn that ends the acquisition, a new start would discard the recording.
  if (acquisitionPending()) {
    window.statusLabel.setInk(Colour::lightRed);
    return window.statusLabel.setText(awaited());
  }
  if (!startIsAllowed(*this)) return;
  const std::string typedNote = window.noteBox.text();
  clearForStart(*this);
  if (!namesAreUsable() || !folderIsReserved(*this)) return tellNoteIsDropped(typedNote);
  window.blockLabel.setText("");
  clearPictures();
  drawGraphFrames();
  openLink();
  const HeldFlag pending(linkPending);  // the stream's start may wait for a silent line
  startAcquisition();
  tellNoteIsDropped(typedNote);
}

void MainState::startAcquisition() {
  const std::vector<std::string> carriedNotes = notesToCarryOver();
  resetAnalysis();
  drawGraphFrames();
  acquisitionRunning = 1;
  endRequested = replayActive = stopRequested = recordingArmed = intervalSelectable = 0;
  artefactFlag = selectionDragging = 0;  // left from the last examination
  blocksRejected = 0;
  noteCount = pairToggleCount = blockCount = 0;
  carryNotesOver(carriedNotes);
  shared.analysisFirstBlock = shared.analysisLastBlock = shared.replayStartBlock = shared.fileBlockCount = 0;
  sharedSelector = 1;
  keepNotesAndNames();
  sendStartCommand();
  host.tickTimer.setEnabled(true);
}

void MainState::stopCommand() {
  stopRequested = 1;
  acquisitionRunning = 0;
}

void MainState::endCommand() {
  window.firstTrace.clear();
  if (shared.inItalian()) window.firstTrace.printAt(1, 1, Colour::white, "Attendere..");
  endRequested = 1;
  if (acquisitionRunning == 0 || !endIsLookedAt(*this)) throw platform::ProgramEnd{};
}

void MainState::endWithoutAsking() {
  nobodyToAsk = 1;
  throw platform::ProgramEnd{};
}

bool MainState::acquisitionPending() const {
  return linkPending == 1 || turnRunning == 1 || host.tickTimer.enabled() || host.pauseTimer.enabled();
}

std::string MainState::awaited() const {
  if (linkPending == 1) return "Attendere il collegamento con lo strumento!";
  const bool ends = stopRequested == 1 || endRequested == 1 || acquisitionRunning == 0;
  return ends && acquisitionPending() ? "Attendere la fine dell'acquisizione!" : "";
}

bool MainState::closeWindow() {
  window.firstTrace.box(1, 1, 100, 25, Colour::white);
  if (shared.inItalian()) window.firstTrace.printAt(1, 1, Colour::black, "Attendere..");
  if (acquisitionRunning != 1 || !endIsLookedAt(*this)) throw platform::ProgramEnd{};
  endRequested = stopRequested = 1;
  return true;
}

void MainState::endAcquisition() {
  host.tickTimer.setEnabled(false);
  host.pauseTimer.setEnabled(false);
  sendStopCommand();
  if (stopRequested != 1 && endRequested != 1) {
    if (recordingArmed == 1) startAcquisition();
    return;
  }
  if (recordingActive == 1) endRecording();
  if (recordingArmed == 0) releaseDataFolder();
  showEndOfRecording(*this);
  acquisitionRunning = 0;
  intervalSelectable = 1;
  handBlockRangeOn(*this);
  const Int16 seconds = blockCount * eeg::secondsPerBlock;
  window.blockLabel.setText("Totale=" + signedText(seconds) + "s");
  warnOfShortRecordings(*this);
  if (endRequested == 1) throw platform::ProgramEnd{};
  if (recordingArmed == 1) startAcquisition();
}

}  // namespace korvinel
