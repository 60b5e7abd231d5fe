#include <array>
#include <cmath>

#include "eeg/bands.h"
#include "eeg/montage.h"
#include "platform/surface.h"
#include "report/band_rows.h"
#include "report/dotted_text.h"
#include "report/report_geometry.h"
#include "report/report_state.h"
#include "report/report_window.h"
#include "report/statistics.h"
#include "values/number_text.h"

namespace korvinel {
namespace {

using platform::Colour;
using platform::Surface;

constexpr std::array<const char*, 5> pairLabels = {
    "", "Coerenza F1-F2=", "Coerenza T5-T6=", "Coerenza F1-T5=", "Coerenza F2-T6="};

/// A tick every ten microvolts from the panel's top. They are drawn at 192, beyond a panel of 128 units: a view shows
/// them at the panel's edge.
void drawTicks(Surface& panel, Fixed unitsPerMicrovolt) {
  constexpr int left = 192, right = 196, foot = 200;
  const Int16 step = Int16::nearest((Fixed(10) * unitsPerMicrovolt).toDouble());
  int tick = 0;
  do {
    panel.line(left, tick, right, tick, Colour::blue);
    tick += step;
  } while (step > 0 && tick <= foot);
}

void drawBars(ReportState& state, int channel, Fixed unitsPerMicrovolt) {
  Surface& panel = state.window.spectrumOf(channel);
  for (int k = 1; k <= eeg::reportedIndexes; ++k) {
    state.binIndex = k;
    state.barColourForBin();
    const auto value = static_cast<double>(state.meanSpectrum[channel][k]);
    const double top = std::nearbyint(200.0 - unitsPerMicrovolt.toDouble() * value);
    panel.box(2 * (k - 1) + 1, 200, 2 * (k - 1) + 2, top, platform::paletteColour(state.traceColour));
  }
}

void drawSpectrum(ReportState& state, int channel) {
  const Fixed unitsPerMicrovolt = Fixed::nearest(Fixed(200) / Fixed(state.microvoltScale));
  Surface& panel = state.window.spectrumOf(channel);
  panel.clear();
  drawBars(state, channel, unitsPerMicrovolt);
  printOnDot(panel, 2, 2, Colour::white, eeg::siteOf(channel));
  drawTicks(panel, unitsPerMicrovolt);
}

void drawCoherence(ReportState& state, int pair) {
  Surface& panel = state.window.coherenceOf(pair);
  ReportSpectrum& spectrum = state.coherenceSpectrum[pair];
  panel.clear();
  spectrum[0] = spectrum[1];  // the first segment starts level
  for (int x = 1; x <= 63; x += 2) panel.point(x, 100, Colour::blue);
  const auto y = [&](int k) { return std::nearbyint(100.0 - static_cast<double>(spectrum[k])); };
  for (int k = 1; k <= state.reportBinCount; ++k) panel.line(k - 1, y(k - 1), k, y(k), Colour::blue);
  printOnDot(panel, 2, 180, Colour::white,
             pairLabels[static_cast<std::size_t>(pair)] + shortestDecimal(state.pairCoherence[pair]));
}

void show(Bounded<float, 4>& shown, const Bounded<Fixed, 4>& values) {
  for (int channel = 1; channel <= 4; ++channel) shown[channel] = static_cast<float>(values[channel].toDouble());
}

void chooseShownValues(ReportState& state) {
  for (const BandRow& row : bandRows) {
    if (state.window.maximumCheck.checked()) show(state.*row.shown, state.*row.maximum);
    if (state.window.meanCheck.checked()) show(state.*row.shown, state.*row.mean);
  }
}

void writeBandValues(ReportState& state, int channel) {
  for (const BandRow& row : bandRows)
    printOnDot(state.window.spectrumOf(channel), row.x, row.y, Colour::white,
               (channel == 2 ? row.labelOfPanelTwo : row.label) + shortestDecimal((state.*row.shown)[channel]));
}

}  // namespace

void ReportState::drawSpectraAndCoherence() {
  for (int channel = 1; channel <= 4; ++channel) drawSpectrum(*this, channel);
  for (int pair = 1; pair <= 4; ++pair) drawCoherence(*this, pair);
}

void ReportState::drawBandValues() {
  computeBandValues();
  chooseShownValues(*this);
  for (int channel = 1; channel <= 4; ++channel) writeBandValues(*this, channel);
}

void ReportState::barColourForBin() { traceColour = eeg::barColour(binIndex); }

void ReportState::maximumClicked() {
  if (window.maximumCheck.checked()) window.meanCheck.setChecked(false);
  redraw();
}

void ReportState::meanClicked() {
  if (window.meanCheck.checked()) window.maximumCheck.setChecked(false);
  redraw();
}

void ReportState::scaleMoved() {
  microvoltScale = window.scaleSlider.value();
  window.scaleLabel.setText("Microvolts=" + std::to_string(microvoltScale));
  reportLines[4] = "Scala: " + std::to_string(microvoltScale) + " microvolts";
  const auto& room = report_geometry::scaleLine;
  window.ground.box(room.x, room.y, room.right(), room.bottom(), backgroundColour);
  window.ground.setInk(Colour::blue);
  printOnDot(window.ground, room.x, room.y, backgroundColour, reportLines[4]);
  redraw();
}

void ReportState::redraw() {
  drawSpectraAndCoherence();
  drawBandValues();
}

}  // namespace korvinel
