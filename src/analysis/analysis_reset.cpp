#include "eeg/block.h"
#include "eeg/montage.h"
#include "frame/main_state.h"
#include "frame/program_values.h"

namespace korvinel {
namespace {

constexpr int lastClearedCoherence = 70;  // the indexes above keep their values until the next first block
constexpr int noteCapacity = 60;

template <int last>
void clearFromOne(Bounded<float, last>& values) {
  for (int i = 1; i <= last; ++i) values[i] = 0;
}

void clearMeans(MainState& state) {
  for (int channel = 1; channel <= 4; ++channel) clearFromOne(state.runningMeanSpectrum[channel]);
  for (int pair = 1; pair <= eeg::pairCount; ++pair)
    for (int i = 1; i <= lastClearedCoherence; ++i) state.meanCoherence[pair][i] = 0;
}

void clearNotes(MainState& state) {
  for (int note = 1; note <= noteCapacity; ++note) {
    state.noteTimes[note] = 0;
    state.noteTexts[note].clear();
  }
}

void clearHistories(ProgramValues& shared) {
  for (int block = 1; block <= eeg::blockLimit; ++block)
    for (int row = 1; row <= 4; ++row) {
      shared.coherenceHistory[row][block] = 0;
      clearFromOne(shared.spectrumHistory[block][row]);
      clearFromOne(shared.coherenceSpectrumHistory[block][row]);
    }
}

}  // namespace

void MainState::resetAnalysis() {
  clearMeans(*this);
  clearNotes(*this);
  clearHistories(shared);
  shared.examination += 1;
}

}  // namespace korvinel
