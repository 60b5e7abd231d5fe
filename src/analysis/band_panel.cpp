#include <array>
#include <string>

#include "analysis/spectrum.h"
#include "eeg/bands.h"
#include "eeg/montage.h"
#include "frame/main_state.h"
#include "frame/main_window.h"
#include "platform/surface.h"
#include "values/number_text.h"

namespace korvinel {
namespace {

/// A line of the panel: the band and the record's field with its peaks.
struct PanelRow {
  const eeg::Band& band;
  Bounded<float, 4> MainState::*peak;
};

constexpr std::array<PanelRow, 4> rows = {{{eeg::delta, &MainState::deltaPeak},
                                           {eeg::theta, &MainState::thetaPeak},
                                           {eeg::alpha, &MainState::alfaPeak},
                                           {eeg::beta, &MainState::betaPeak}}};
constexpr int lineDistance = 15;

float peakOf(const Bounded<float, 130>& amplitude, eeg::IndexRange range) {
  return static_cast<float>(floorToTenth(largestAmplitude(amplitude.data(), range)).toDouble());
}

void printLine(platform::Surface& panel, double y, const std::string& text) {
  panel.point(5, y, panel.ink());
  panel.print(text);
}

void printPanel(MainState& state, platform::Surface& panel, int channel) {
  int y = lineDistance;
  panel.clear();
  printLine(panel, y, "Valori numerici max");
  for (const PanelRow& row : rows)
    printLine(panel, y += lineDistance,
              row.band.nameInWindow + ("=" + shortestDecimal((state.*row.peak)[channel])) + "uV");
}

}  // namespace

void MainState::showBandPeaks() {
  for (int channel = 1; channel <= eeg::channelCount; ++channel)
    for (const PanelRow& row : rows) (this->*row.peak)[channel] = peakOf(amplitudeSpectrum[channel], row.band.indexes);
  const int firstChannel = channelPair == 1 ? 1 : channelPair == 2 ? 3 : 0;
  printPanel(*this, window.firstNumbers, firstChannel);
  printPanel(*this, window.secondNumbers, firstChannel == 0 ? 0 : firstChannel + 1);
  numbersPair = channelPair;
}

}  // namespace korvinel
