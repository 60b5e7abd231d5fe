#include <algorithm>
#include <cstdint>
#include <memory>
#include <utility>

#include "eeg/block.h"
#include "frame/fault_text.h"
#include "frame/main_state.h"
#include "frame/main_window.h"
#include "frame/program_values.h"
#include "platform/dialogs.h"
#include "platform/files.h"
#include "platform/platform.h"
#include "platform/program_end.h"
#include "platform/skip_on_fault.h"
#include "recording/channel_record.h"
#include "recording/file_loop.h"
#include "recording/scan_messages.h"
#include "values/runtime_error.h"

namespace korvinel {
namespace {

using platform::skipOnFault;

void leaveOpenFile(MainState& state) {
  state.window.startPicture.setVisible(false);
  state.openFilePath.clear();
  state.openFileTitle.clear();
  state.openingFault.reset();
  state.intervalSelectable = state.replayActive = state.acquisitionRunning = 0;
  state.readHandle.reset();
  state.window.Slider1.setValue(0);
  state.artefactThreshold = 130;
  state.artefactFlag = 0;
}

void noFileChosen(MainState& state) {
  state.openFilePath.clear();
  state.openFileTitle.clear();
  state.acquisitionRunning = 0;
  state.window.messagePanel.clear();
}

/// The name without its folder. A backslash is an ordinary character in the paths of some hosts.
std::string titleOf(const std::string& path) {
  const std::size_t separator = path.find_last_of(path.starts_with('/') ? "/" : "\\/");
  return separator == std::string::npos ? path : path.substr(separator + 1);
}

bool chooseFile(MainState& state) {
  state.openFilePath = state.host.dialogs.chooseFile(state.lastOpenDir, "(*.QVD)|*.QVD|");
  state.openFileTitle = titleOf(state.openFilePath);
  if (state.openFilePath.empty()) return false;
  state.lastOpenDir = state.openFilePath.substr(0, state.openFilePath.size() - state.openFileTitle.size());
  return true;
}

/// Opens the file and reads everything before its samples; if that fails, tells the user.
bool readBeginning(MainState& state) {
  try {
    state.readHandle = state.host.files.openForReading(state.openFilePath);
    state.readFileHeader();
    return true;
  } catch (const RuntimeError& fault) {
    state.readHandle.reset();
    state.openingFault = std::make_shared<const Facts>(fault.facts());
    state.host.dialogs.notice("Impossibile leggere il file " + state.openFileTitle + "!\r" + faultText(fault));
    return false;
  }
}

void showHeader(MainState& state) {
  MainWindow& window = state.window;
  window.blockLabel.setText(state.fileVersionTag);
  window.dateLabel.setText("Data=" + state.recordingDate);
  window.fileNameBox.setText(state.openFileTitle);
  window.subjectBox.setText(state.shared.subjectName);
}

/// A file that is too short or of an unknown version must not show the last examination's samples.
void forgetLastExamination(MainState& state) {
  state.sampleBlock = {};
  state.clearPictures();
  state.drawGrids();
}

/// Clears the analysis for the new file. The notes are already the file's own and stay, so that they can be marked on
/// the time strip.
void resetForScan(MainState& state) {
  const auto times = state.noteTimes;
  const auto texts = state.noteTexts;
  skipOnFault([&] { state.resetAnalysis(); });
  state.noteTimes = times;
  state.noteTexts = texts;
  state.acquisitionRunning = 1;
  state.intervalSelectable = state.stopRequested = state.blockCount = state.selectionDragging = 0;
  ProgramValues& shared = state.shared;
  shared.analysisFirstBlock = shared.analysisLastBlock = shared.replayStartBlock = shared.fileBlockCount = 0;
}

void analyseScannedBlock(MainState& state) {
  skipOnFault([&] { state.computeComplexSpectra(); });
  skipOnFault([&] { state.lowPassBlock(); });
  skipOnFault([&] { state.removeOcularArtefacts(); });
  skipOnFault([&] { state.analyseBlockSpectra(); });
  skipOnFault([&] { state.computeBlockCorrelation(); });
  skipOnFault([&] { state.computeCoherence(); });
}

/// By the file's size; 0 for a version whose blocks have no fixed length.
int blocksToScan(const MainState& state) {
  if (state.fileVersionTag != "V3") return 0;
  const std::int64_t blocks = (state.readHandle->size() - state.readHandle->position()) / blockBytes;
  return static_cast<int>(std::clamp<std::int64_t>(blocks, 0, eeg::blockLimit - 1));
}

enum class ScanResult { finished, stopped, fileGone };

/// Reads and analyses up to the file's end or the block limit. A RuntimeError if it cannot be read.
ScanResult scanBlocks(MainState& state) {
  FileLoop loop(state);
  do {
    if (!loop.poll()) return ScanResult::fileGone;
    state.blockCount += 1;
    if (state.blockCount >= eeg::blockLimit) return ScanResult::finished;
    state.window.blockLabel.setText(std::to_string(state.blockCount));
    state.readFileBlock();
    analyseScannedBlock(state);
    if (state.endRequested == 1) throw platform::ProgramEnd{};
    if (state.stopRequested == 1) return ScanResult::stopped;
  } while (!loop.atEnd());
  return ScanResult::finished;
}

/// A read error ends the scan there, and `openingFault` says why.
ScanResult scan(MainState& state) {
  try {
    return scanBlocks(state);
  } catch (const RuntimeError& fault) {
    if (state.endRequested == 1) throw platform::ProgramEnd{};
    if (state.stopRequested == 1) return ScanResult::stopped;
    Facts facts = fault.facts();
    facts.block = state.blockCount;
    state.openingFault = std::make_shared<const Facts>(std::move(facts));
    return ScanResult::finished;
  } catch (const std::exception&) {
    // Otherwise Start, this command and the program's end would wait for a scan that no longer runs.
    if (!state.acquisitionPending()) state.acquisitionRunning = 0;
    throw;
  }
}

void handBlockRangeOn(MainState& state) {
  // One less than was read: the last block, which may be incomplete, is not counted.
  state.blockCount -= 1;
  state.shared.replayStartBlock = 1;
  state.shared.fileBlockCount = state.blockCount;
  state.intervalSelectable = 1;
  state.acquisitionRunning = state.selectionDragging = 0;
  state.shared.analysisFirstBlock = 1;
  state.shared.analysisLastBlock = state.shared.fileBlockCount;
}

}  // namespace

bool openingIsAllowed(MainState& state) {
  if (state.acquisitionRunning != 1 && !state.acquisitionPending()) return true;
  const std::string waitFor = state.awaited();
  state.host.dialogs.notice(waitFor.empty() ? "Prima premere Stop!" : waitFor);
  return false;
}

void openChosenFile(MainState& state) {
  leaveOpenFile(state);
  if (!chooseFile(state)) return noFileChosen(state);
  forgetLastExamination(state);
  announceReading(state);
  if (!readBeginning(state)) return noFileChosen(state);
  showHeader(state);
  state.scanTotal = blocksToScan(state);
  resetForScan(state);
  const ScanResult result = scan(state);
  if (result == ScanResult::stopped) showThatItWasStopped(state);
  if (result != ScanResult::finished) return;
  handBlockRangeOn(state);
  showScannedFile(state);
  tellReadFault(state);
}

void MainState::openDataFile() { runFileCommand(*this, FileCommand::open); }

void MainState::startBlockChanged() {
  shared.replayStartBlock = window.Slider1.value();
  if (shared.replayStartBlock > shared.fileBlockCount) {
    shared.replayStartBlock = shared.fileBlockCount;
    window.Slider1.setValue(shared.fileBlockCount);
  }
  window.replayPositionLabel.setText(std::to_string(shared.replayStartBlock));
  if (intervalSelectable != 1) return;
  blockCount = shared.replayStartBlock;
  drawSpectrumDisplay();
  showBandPeaks();
}

}  // namespace korvinel
