#include <algorithm>
#include <cmath>

#include "device/baseline.h"
#include "eeg/block.h"
#include "eeg/montage.h"
#include "frame/held_flag.h"
#include "frame/main_state.h"
#include "frame/main_window.h"
#include "frame/program_values.h"
#include "platform/platform.h"
#include "platform/skip_on_fault.h"
#include "platform/surface.h"
#include "platform/timing.h"

namespace korvinel {
namespace {

using platform::Colour;
using platform::skipOnFault;

constexpr double turnBudgetMs = 870;

void finish(MainState& state) {
  skipOnFault([&] { state.endAcquisition(); });
}

/// The pause is shortened by the time spent on the block, so that a turn lasts three seconds.
void armPauseTimer(MainState& state, double turnStart) {
  state.window.Slider1.setValue(state.blockCount);
  const double elapsedMs = std::trunc((state.host.clock.seconds() - turnStart) * 1000.0);
  state.pauseInterval = Fixed::nearest(std::trunc(turnBudgetMs - elapsedMs));
  if (state.pauseInterval < 1) state.pauseInterval = 1;
  state.host.pauseTimer.setIntervalMs(static_cast<int>(state.pauseInterval.toDouble()));
  state.host.pauseTimer.setEnabled(true);
}

void handleAcceptedBlock(MainState& state) {
  const double turnStart = state.timerMark = state.host.clock.seconds();
  skipOnFault([&] { state.drawRawTraces(); });
  skipOnFault([&] { state.removeBaseline(); });
  skipOnFault([&] { state.removeOcularArtefacts(); });
  skipOnFault([&] { state.drawCorrectedTraces(); });
  skipOnFault([&] { state.nameTraces(); });
  skipOnFault([&] { state.appendBlockToTemp(); });
  skipOnFault([&] { state.analyseBlockSpectra(); });
  skipOnFault([&] { state.lowPassBlock(); });
  skipOnFault([&] { state.computeBlockCorrelation(); });
  skipOnFault([&] { state.computeCoherence(); });
  state.host.events.process();
  skipOnFault([&] { state.drawCoherenceGraph(); });
  skipOnFault([&] { state.drawSpectrumDisplay(); });
  skipOnFault([&] { state.showBandPeaks(); });
  const bool ends = state.endRequested == 1 || state.stopRequested == 1;
  // When recording has just been switched on, the examination restarts, so that it counts from the recording's first
  // block.
  if (ends || state.recordingArmed == 1) return finish(state);
  armPauseTimer(state, turnStart);
}

void runTurn(MainState& state) {
  state.host.tickTimer.setEnabled(false);
  if (state.artefactFlag == 0) state.blockCount += 1;
  if (state.blockCount >= eeg::blockLimit) {
    state.host.pauseTimer.setEnabled(false);
    state.stopRequested = 1;
    return finish(state);
  }
  skipOnFault([&] { state.readBlock(); });
  if (state.stopRequested == 1) return finish(state);
  if (state.artefactFlag == 0) return handleAcceptedBlock(state);
  if (state.endRequested == 1) finish(state);
}

/// Until the acquisition has ended there is always another turn, whatever happened in this one: only turns check for
/// Stop and End.
void keepTurning(MainState& state) {
  const bool turnComes = state.host.tickTimer.enabled() || state.host.pauseTimer.enabled();
  if (state.intervalSelectable == 0 && !turnComes) state.host.tickTimer.setEnabled(true);
}

/// The two trace graphs and the channels of the pair shown on them.
struct TracePair {
  platform::Surface& first;
  platform::Surface& second;
  int firstChannel;
};

TracePair tracePair(MainState& state) {
  return {state.window.firstTrace, state.window.secondTrace, eeg::firstChannelShown(state.channelPair)};
}

}  // namespace

void MainState::acquisitionTick() {
  const HeldFlag running(turnRunning);
  skipOnFault([&] { runTurn(*this); });
  keepTurning(*this);
}

void MainState::pauseElapsed() {
  host.tickTimer.setEnabled(true);
  host.pauseTimer.setEnabled(false);
}

void MainState::smoothBlock() {
  for (int channel = 1; channel <= 4; ++channel) {
    auto& samples = sampleBlock[channel];
    samples[0] = samples[1];
    samples[samplesPerBlock + 1] = samples[samplesPerBlock];
    // In place: the left neighbour is already smoothed, the right one is raw. The asymmetry is intended.
    for (int s = 1; s <= samplesPerBlock; ++s) {
      const double left = samples[s - 1];
      const double right = samples[s + 1];
      samples[s] = static_cast<float>((static_cast<double>(samples[s]) + 0.3 * left + 0.3 * right) / 1.6);
    }
  }
}

void MainState::removeBaseline() {
  Bounded<float, 4, 260> baseline;
  for (int channel = 1; channel <= 4; ++channel)
    std::copy_n(sampleBlock[channel].data() + 1, samplesPerBlock, baseline[channel].data() + 1);
  smoothChannelsToBaseline({baseline[1].data(), baseline[2].data(), baseline[3].data(), baseline[4].data()},
                           samplesPerBlock);
  for (int channel = 1; channel <= shared.channelCount; ++channel)
    for (int s = 1; s <= samplesPerBlock; ++s)
      sampleBlock[channel][s] = static_cast<float>(static_cast<double>(sampleBlock[channel][s]) -
                                                   static_cast<double>(baseline[channel][s]) + eeg::midLevel);
}

void MainState::drawTrace(platform::Surface& surface, int channel, Colour colour) {
  const auto& samples = sampleBlock[channel];
  for (int s = 2; s <= samplesPerBlock; ++s) {
    lineX1 = s - 1;
    lineX2 = s;
    lineY1 = Int16::nearest(255.0 - static_cast<double>(samples[s - 1]));
    lineY2 = Int16::nearest(255.0 - static_cast<double>(samples[s]));
    surface.line(lineX1, lineY1, lineX2, lineY2, colour);
  }
}

void MainState::drawRawTraces() {
  const TracePair pair = tracePair(*this);
  pair.first.clear();
  pair.second.clear();
  drawTrace(pair.first, pair.firstChannel, Colour::lightGreen);
  drawTrace(pair.second, pair.firstChannel + 1, Colour::lightGreen);
  if (artefactFlag == 1 && shared.inItalian()) pair.first.printAt(1, 1, Colour::white, "Artefatto!");
  tracesPair = channelPair == 2 ? 2 : 1;
}

void MainState::drawCorrectedTraces() {
  const TracePair pair = tracePair(*this);
  drawTrace(pair.first, pair.firstChannel, Colour::blue);
  drawTrace(pair.second, pair.firstChannel + 1, Colour::blue);
}

void MainState::nameTraces() {
  window.firstTrace.printAt(4, 226, Colour::white, pairLabel1);
  window.secondTrace.printAt(4, 226, Colour::white, pairLabel2);
}

}  // namespace korvinel
