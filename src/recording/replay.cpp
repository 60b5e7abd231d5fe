#include <algorithm>
#include <utility>

#include "eeg/block.h"
#include "frame/main_state.h"
#include "frame/main_window.h"
#include "frame/program_values.h"
#include "platform/dialogs.h"
#include "platform/files.h"
#include "platform/platform.h"
#include "platform/program_end.h"
#include "recording/file_loop.h"
#include "values/runtime_error.h"

namespace korvinel {
namespace {

using platform::Colour;

bool refuse(MainState& state, const char* message) {
  state.host.dialogs.notice(message);
  return false;
}

void openForReplay(MainState& state) {
  state.readHandle = state.host.files.openForReading(state.openFilePath);
  try {
    state.readFileHeader();
  } catch (...) {
    state.readHandle.reset();
    throw;
  }
  state.window.blockLabel.setText(state.fileVersionTag);
  state.window.dateLabel.setText("Data=" + state.recordingDate);
}

void beginReplay(MainState& state) {
  state.blockCount = state.stopRequested = state.acquisitionRunning = 0;
  state.replayActive = 1;
  state.window.noteBox.setText("");
}

/// Skips blocks up to the start block, which is itself skipped too, unless it is block 1.
void skipToStartBlock(MainState& state, FileLoop& loop) {
  if (state.shared.replayStartBlock <= 1) return;
  do {
    if (!loop.poll()) return;
    state.readFileBlock();
    if (loop.atEnd()) return;
    state.blockCount += 1;
  } while (state.blockCount < state.shared.replayStartBlock);  // the slider may have been moved back meanwhile
}

void showBlock(MainState& state) {
  state.readFileBlock();
  state.removeOcularArtefacts();
  state.drawRawTraces();
  state.analyseBlockSpectra();
  state.drawSpectrumDisplay();
  state.showBandPeaks();
}

bool leaves(const MainState& state, const FileLoop& loop) {
  return state.endRequested == 1 || state.stopRequested == 1 || state.printRequested == 1 || loop.atEnd();
}

/// A block stands for three seconds. The speed may change meanwhile. Returns whether the file is still open.
bool pace(MainState& state, const FileLoop& loop) {
  const double start = state.timerMark = state.host.clock.seconds();
  while (state.host.clock.seconds() - start <
         static_cast<double>(eeg::secondsPerBlock) / std::max<int>(state.displaySpeed, 1)) {
    state.host.events.process();
    if (loop.fileGone()) return false;
  }
  return true;
}

void showBlocks(MainState& state, FileLoop& loop) {
  while (loop.poll()) {
    state.blockCount += 1;
    showBlock(state);
    if (leaves(state, loop)) return;
    state.window.replayPositionLabel.setText(std::to_string(state.blockCount));
    state.window.Slider1.setValue(state.blockCount);
    if (!pace(state, loop)) return;
  }
}

void replayBlocks(MainState& state, FileLoop& loop) {
  skipToStartBlock(state, loop);
  if (!loop.fileGone()) showBlocks(state, loop);
}

void rewind(MainState& state) {
  state.shared.replayStartBlock = 1;
  state.window.Slider1.setValue(1);
  state.acquisitionRunning = state.stopRequested = state.selectionDragging = 0;
  state.shared.analysisFirstBlock = 1;
  state.shared.analysisLastBlock = state.shared.fileBlockCount;
}

void printImage(MainState& state, const FileLoop& loop) {
  try {
    state.printScreen();
  } catch (const RuntimeError&) {
    if (!loop.fileGone()) rewind(state);
    throw;
  }
}

/// The file stays open while the print waits, so that a Start or another command in that time is noticed and the record
/// left to it.
void actOnRequests(MainState& state, const FileLoop& loop) {
  if (state.printRequested == 1) printImage(state, loop);
  if (loop.fileGone()) return;
  if (state.endRequested == 1) throw platform::ProgramEnd{};
  if (state.stopRequested == 1) state.window.firstTrace.printAt(1, 1, Colour::white, "Stop data...");
  rewind(state);
}

}  // namespace

bool replayIsAllowed(MainState& state) {
  if (!state.shared.inItalian()) return true;
  if (state.openFilePath.empty()) return refuse(state, "Prima aprire un file!");
  if (state.acquisitionRunning == 1) return refuse(state, "Premere prima Stop!");
  return true;
}

void replayOpenFile(MainState& state) {
  state.shared.replayStartBlock = state.window.Slider1.value();
  if (state.shared.replayStartBlock > state.shared.fileBlockCount) return rewind(state);
  const std::string typedNote = state.window.noteBox.text();
  openForReplay(state);
  beginReplay(state);
  FileLoop loop(state);
  state.tellNoteIsDropped(typedNote);
  try {
    replayBlocks(state, loop);
  } catch (const RuntimeError& fault) {
    rewind(state);
    Facts facts = fault.facts();
    facts.block = state.blockCount;
    if (state.blockCount > 0) state.blockCount -= 1;  // the display stays on the last block that could be shown
    throw RuntimeError(std::move(facts));
  }
  if (!loop.fileGone()) actOnRequests(state, loop);
}

void MainState::replayFile() { runFileCommand(*this, FileCommand::replay); }

}  // namespace korvinel
