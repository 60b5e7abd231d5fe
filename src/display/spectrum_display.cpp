#include "display/spectrum_display.h"

#include <algorithm>
#include <cmath>

#include "display/grid.h"
#include "eeg/bands.h"
#include "eeg/block.h"
#include "eeg/montage.h"
#include "frame/main_state.h"
#include "frame/main_window.h"
#include "frame/program_values.h"
#include "frame/synchrony_trend.h"
#include "platform/surface.h"
#include "values/number_text.h"

namespace korvinel {
namespace {

using platform::Colour;
using platform::Surface;

constexpr int panelWidth = 258;
constexpr int lastBlock = 202;

void namePanels(MainState& state) {
  if (state.channelPair != 2) {
    state.pairLabelLeft = "C1";
    state.pairLabelRight = "C2";
  } else {
    // Both names of the second pair are set on the right panel and the left one keeps its own: settled behaviour.
    state.pairLabelRight = "C3";
    state.pairLabelRight = "C4";
  }
}

/// With a whole recording in memory the block chosen by the slider is shown, not the one analysed last.
void recallBlock(MainState& state) {
  const auto& stored = state.shared.spectrumHistory[state.blockCount];
  for (int channel = 1; channel <= 4; ++channel)
    for (int i = 1; i <= state.fftHalf; ++i) state.amplitudeSpectrum[channel][i] = stored[channel][i];
}

/// Low frequencies at the bottom; `start` is the base of the bars, `endOf` returns their other end.
template <typename BarEnd>
void drawBars(MainState& state, Surface& panel, int channel, double start, BarEnd&& endOf) {
  panel.clear();
  drawGrid(panel, spectrumGridStep, spectrumGridStep);
  for (int i = 1; i <= state.displayedBins; ++i) {
    state.bandColour = eeg::barColour(i);
    const double top = 258 - 4 * i;
    panel.box(start, top, endOf(state.amplitudeSpectrum[channel][i]), top + 2,
              platform::paletteColour(state.bandColour));
  }
}

void drawPanels(MainState& state, Fixed scale) {
  MainWindow& window = state.window;
  const int first = eeg::firstChannelShown(state.channelPair);
  drawBars(state, window.leftSpectrum, first, panelWidth, [&](float uV) { return leftBarEnd(scale, uV); });
  drawBars(state, window.rightSpectrum, first + 1, 0, [&](float uV) { return rightBarEnd(scale, uV); });
  // In the outer corners, where only bars near the full scale reach.
  window.leftSpectrum.printAt(4, 2, Colour::black, state.pairLabelLeft);
  window.rightSpectrum.printAt(234, 2, Colour::black, state.pairLabelRight);
  state.spectraPair = state.channelPair == 2 ? 2 : 1;
}

void showMainsVerdict(MainState& state) {
  // With a file open the line shows its date, not `headerText1`, which may have been overwritten since.
  std::string text = state.fileDateField + "\r";
  if (state.openFilePath.empty()) {
    text = "     Disturbo a  50Hz\r";
    for (int channel = 1; channel <= 4; ++channel) text += mainsVerdict(channel, state.mainsDisturbance[channel]);
  }
  state.window.zLabel.setText(text);
}

/// During a replay: the whole file's synchrony, with the value and the position of the current block.
void drawStrip(MainState& state) {
  Surface& strip = state.window.Picture6;
  const int pair = state.channelPair == 2 ? 2 : 1;
  const auto& correlation = state.shared.coherenceHistory[pair];
  strip.clear();
  drawTrendScale(strip);
  drawTrend(strip, correlation, state.shared.fileBlockCount);
  if (state.blockCount <= lastBlock)
    strip.printAt(450, 170, strip.ink(),
                  (pair == 1 ? "Syncro 1-2=" : "Syncro 3-4=") + shortestDecimal(correlation[state.blockCount]));
  const double cursor = eeg::secondsPerBlock * state.blockCount;
  strip.line(cursor, 1, cursor, 200, Colour::lightCyan);
  state.stripPair = pair;
}

}  // namespace

Fixed barScale(int microvoltScale) { return Fixed::nearest(Fixed(254) / Fixed(microvoltScale)); }

double leftBarEnd(Fixed scale, float microvolts) {
  return std::max(1.0, std::nearbyint(257.0 - scale.toDouble() * static_cast<double>(microvolts)));
}

double rightBarEnd(Fixed scale, float microvolts) {
  return std::min(258.0, std::nearbyint(scale.toDouble() * static_cast<double>(microvolts) + 1.0));
}

std::string mainsVerdict(int channel, Fixed microvolts) {
  const char* word = microvolts < 30 ? "=basso  " : microvolts <= 60 ? "=medio  " : "=alto!  ";
  return std::to_string(channel) + word;
}

void MainState::drawSpectrumDisplay() {
  const Fixed scale = barScale(microvoltScale);
  namePanels(*this);
  drawFrequencyAxis();
  if (intervalSelectable == 1) recallBlock(*this);
  drawPanels(*this, scale);
  showMainsVerdict(*this);
  window.timeLabel.setText("Tempo=" + std::to_string(blockCount * eeg::secondsPerBlock) + " secondi");
  if (replayActive == 1) drawStrip(*this);
}

}  // namespace korvinel
