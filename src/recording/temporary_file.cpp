#include "frame/main_state.h"
#include "frame/main_window.h"
#include "frame/program_values.h"
#include "platform/dialogs.h"
#include "platform/files.h"
#include "platform/platform.h"
#include "recording/channel_record.h"
#include "recording/data_paths.h"
#include "recording/record_line.h"
#include "recording/safe_keeping.h"
#include "recording/side_file.h"

namespace korvinel {
namespace {

constexpr int blocksPerSynchronising = 5;  // fifteen seconds

/// The first block is forced onto the disk at once, and with it the file's name.
bool synchroniseNow(const MainState& state) {
  const auto blocks = static_cast<int>((state.temporaryContent.size() - recordedHeaderBytes(state)) / blockBytes);
  return blocks % blocksPerSynchronising == 1;
}

}  // namespace

void MainState::createTempFile() {
  setAsidePath.clear();
  foreignPaths.clear();
  savedElsewhere.clear();
  recordingFaultUntold = dataFileWhole = 0;
  blocksFromMemory = 0;
  if (leftOverTemporaryFile(host.files)) setAsidePath = setLeftOverFileAside(*this);
  setLonelySideFileAside(*this);
  temporaryContent = temporaryHeaderLine(shared.subjectName, recordingDate);
  temporaryWritten = 0;
  recordingFault.reset();
  host.files.create(temporaryPath)->write(temporaryContent);
  temporaryWritten = static_cast<int>(temporaryContent.size());
  beginSideFile(*this);
}

void MainState::appendBlockToTemp() {
  if (recordingActive != 1) return;
  for (int channel = 1; channel <= 4; ++channel) temporaryContent += takeChannelRecord(sampleBlock[channel]);
  const bool written = attemptWrite(*this, [&] { completeTemporaryFile(*this, synchroniseNow(*this)); });
  if (written) return;
  window.statusLabel.setInk(platform::Colour::lightRed);
  window.statusLabel.setText("Errore di scrittura su disco!");
}

}  // namespace korvinel
