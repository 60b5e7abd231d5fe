#include "eeg/block.h"
#include "eeg/spectrum.h"
#include "frame/configuration.h"
#include "frame/main_state.h"
#include "frame/main_window.h"
#include "frame/program_values.h"
#include "platform/files.h"
#include "platform/machine.h"
#include "platform/platform.h"
#include "platform/timing.h"

namespace korvinel {
namespace {

constexpr auto settingsPath = "C:\\QUARVEL5\\Instal8s.val";
constexpr auto calibrationPath = "C:\\QUARVEL5\\Factors.val";

void setDefaults(MainState& state) {
  state.lastOpenDir = "C:\\QUARVEL5\\DATAFILE\\";
  state.pairLabel1 = "Cha.1";
  state.pairLabel2 = "Cha.2";
  state.pairToggleCount = 0;
  state.channelPair = 1;
  state.samplesPerBlock = eeg::samplesPerBlock;
  state.fftHalf = eeg::keptIndexes;
  state.displayedBins = eeg::reportedIndexes;
  state.recordingDate = platform::dateText(state.host.clock.localTime());
  state.linkReady = 0;
  state.recordingActive = state.endRequested = state.printRequested = 0;
  state.recordingArmed = state.acquisitionRunning = 0;
  state.headerText1.clear();
  state.displaySpeed = 6;
  state.shared.channelCount = 4;
  state.artefactThreshold = 130;
}

void prepareTimers(MainState& state) {
  state.host.tickTimer.setIntervalMs(2130);
  state.host.tickTimer.setEnabled(false);
  state.host.pauseTimer.setIntervalMs(870);
  state.host.pauseTimer.setEnabled(false);
}

}  // namespace

void MainState::startUp() {
  prepareTimers(*this);
  startButtonColour = window.Starts1.backColour();
  setDefaults(*this);
  serialPort = readSettings(*host.files.openForReading(settingsPath));
  shared.languageFlag = "Ita";
  readCalibration(*host.files.openForReading(calibrationPath), binCalibration);
  window.fileNameBox.requestFocus();
  raisePriority();
  setCaptions();
  drawGraphFrames();
}

void MainState::raisePriority() {
  host.machine.setThreadPriority(1);
  host.machine.setPriorityClass(128);
}

void MainState::setCaptions() {
  window.Starts1.setCaption("Start");
  window.Registra.setCaption("Registra");
  window.Artefact.setCaption("Artefatti");
  window.Canali.setCaption("Canali");
  window.Annotax.setCaption("Annota");
  window.Analisi.setCaption("Analisi");
  window.Stopd1.setCaption("Stop");
  window.Openx.setCaption("Apri File");
  window.Displayx.setCaption("Display");
  window.Stampa.setCaption("Stampa");
  window.Endx1.setCaption("End");
  window.ocularCheck.setCaption("Rimoz. artefatti oculari");
}

}  // namespace korvinel
