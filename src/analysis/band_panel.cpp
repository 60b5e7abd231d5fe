#include <string>

#include "analysis/spectrum.h"
#include "frame/main_state.h"
#include "values/number_text.h"

namespace korvinel {
namespace {

float peakOf(const Bounded<float, 130>& amplitude, IndexRange band) {
  return static_cast<float>(floorToTenth(largestAmplitude(amplitude.data(), band)).toDouble());
}

void printLine(platform::Surface& panel, double y, const std::string& text) {
  panel.point(5, y, panel.ink());
  panel.print(text);
}

void printPanel(MainState& state, platform::Surface& panel, int channel) {
  const auto line = [&](double y, const char* band, const Bounded<float, 4>& peaks) {
    printLine(panel, y, band + shortestDecimal(peaks[channel]) + "uV");
  };
  panel.clear();
  printLine(panel, 15, "Valori numerici max");
  line(30, "Delta=", state.deltaPeak);
  line(45, "Theta=", state.thetaPeak);
  line(60, "Alfa=", state.alfaPeak);
  line(75, "Beta=", state.betaPeak);
}

}  // namespace

void MainState::showBandPeaks() {
  for (int channel = 1; channel <= 4; ++channel) {
    const auto& amplitude = amplitudeSpectrum[channel];
    deltaPeak[channel] = peakOf(amplitude, deltaBand);
    thetaPeak[channel] = peakOf(amplitude, thetaBand);
    alfaPeak[channel] = peakOf(amplitude, alfaBand);
    betaPeak[channel] = peakOf(amplitude, betaBand);
  }
  const int firstChannel = channelPair == 1 ? 1 : channelPair == 2 ? 3 : 0;
  printPanel(*this, window.firstNumbers, firstChannel);
  printPanel(*this, window.secondNumbers, firstChannel == 0 ? 0 : firstChannel + 1);
}

}  // namespace korvinel
