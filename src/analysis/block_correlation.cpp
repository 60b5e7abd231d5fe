#include <cmath>

#include "analysis/correlation.h"
#include "eeg/block.h"
#include "eeg/montage.h"
#include "frame/main_state.h"
#include "frame/main_window.h"
#include "frame/program_values.h"
#include "frame/synchrony_trend.h"
#include "platform/surface.h"
#include "values/runtime_error.h"

namespace korvinel {
namespace {

constexpr int sampleCount = eeg::samplesPerBlock;

float meanOf(const float* samples) {
  float sum = 0;
  for (int i = 1; i <= sampleCount; ++i) sum += samples[i];
  return sum / static_cast<float>(sampleCount);
}

/// While acquiring, the time strip follows the pair shown; with a file open it shows the whole file instead.
void drawLiveTrend(MainState& state) {
  platform::Surface& strip = state.window.Picture6;
  strip.clear();
  drawTrendScale(strip);
  drawTrend(strip, state.shared.coherenceHistory[state.channelPair], state.blockCount);
  drawNoteMarks(state);
  state.stripPair = state.channelPair;
}

}  // namespace

float correlationPercent(const float* x, const float* y) {
  const float meanX = meanOf(x);
  const float meanY = meanOf(y);
  float sumXY = 0, sumXX = 0, sumYY = 0;
  for (int i = 1; i <= sampleCount; ++i) {
    const float fromX = x[i] - meanX;
    const float fromY = y[i] - meanY;
    sumXY += fromX * fromY;
    sumXX += fromX * fromX;
    sumYY += fromY * fromY;
  }
  const float flatness = sumXX * sumYY;
  if (flatness == 0) return 0;
  const double percent = std::floor(100.0 * static_cast<double>(sumXY) /
                                    std::sqrt(static_cast<double>(sumXX) * static_cast<double>(sumYY)));
  if (std::isnan(percent)) throw RuntimeError(Cause::noCorrelation);
  return static_cast<float>(percent);
}

void MainState::computeBlockCorrelation() {
  if (blockCount == 0) return;
  for (int pair = 1; pair <= eeg::pairCount; ++pair) {
    const auto [first, second] = eeg::channelsOfPair(pair);
    shared.coherenceHistory[pair][blockCount] =
        correlationPercent(sampleBlock[first].data(), sampleBlock[second].data());
  }
  if (openFilePath.empty()) drawLiveTrend(*this);
}

}  // namespace korvinel
