#include "eeg/block.h"
#include "eeg/spectrum.h"
#include "frame/program_values.h"
#include "platform/platform.h"
#include "platform/surface.h"
#include "platform/timing.h"
#include "report/dotted_text.h"
#include "report/report_geometry.h"
#include "report/report_state.h"
#include "report/report_window.h"

namespace korvinel {
namespace {

using platform::Colour;

/// 0, 5, 10, .. hertz from `left` to `right`, then the unit.
void printFrequencies(platform::Surface& ground, int left, int right, int unitLeft) {
  constexpr int step = 69;  // about a sixth of 412
  int hertz = 0;
  for (int x = left; x <= right; x += step, hertz += 5)
    printOnDot(ground, x, report_geometry::frequencyLine, Colour::lightGrey, std::to_string(hertz));
  printOnDot(ground, unitLeft, report_geometry::frequencyLine, Colour::lightGrey, "Hz");
}

void printMaker(ReportState& state) {
  platform::Surface& ground = state.window.ground;
  state.backgroundColour = ground.background();
  ground.setInk(Colour::lightRed);
  printOnDot(ground, report_geometry::textColumn, report_geometry::makerLine, state.backgroundColour,
             "Norvess Instruments");
  ground.setInk(Colour::blue);
}

/// A block counts as three seconds.
void showInterval(ReportState& state) {
  const Int16 distance = state.shared.analysisLastBlock - state.shared.analysisFirstBlock;
  const Int16 blocks = distance + 1;
  const Int16 seconds = blocks * eeg::secondsPerBlock;
  state.window.intervalLabel.setText(std::to_string(seconds) + "s");
}

void setCaptions(ReportState& state) {
  if (!state.shared.inItalian()) return;
  state.window.exitButton.setCaption("Uscita");
  state.window.numbersButton.setCaption("Numeri");
  state.window.printButton.setCaption("Stampa");
  state.window.explainButton.setCaption("Spiega");
  state.window.maximumCheck.setCaption("Calcolo valori max banda");
  state.window.meanCheck.setCaption("Calcolo valori medi banda");
}

}  // namespace

void ReportState::loadReport() {
  reached = ReportStep::none;
  printMaker(*this);
  reportBinCount = eeg::reportedIndexes;
  microvoltScale = 30;
  traceColour = 0;
  shared.channelCount = 4;
  printFrequencies(window.ground, 2, 420, 105);
  printFrequencies(window.ground, 440, 858, 550);
  reportDate = platform::dateText(host.clock.localTime());
  showInterval(*this);
  setCaptions(*this);
  computeReportSpectra();
  reached = ReportStep::spectra;
  fitNoiseCurve();
  reached = ReportStep::noise;
  drawSpectraAndCoherence();
  reached = ReportStep::graphs;
  drawBandValues();
  reached = ReportStep::bandValues;
  buildVerdicts();
  reached = ReportStep::verdicts;
}

}  // namespace korvinel
