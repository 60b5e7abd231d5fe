#include "analysis/phase.h"
#include "analysis/spectrum.h"
#include "eeg/montage.h"
#include "eeg/spectrum.h"
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

using Phases = Bounded<Fixed, eeg::keptIndexes>;

void keepCoherence(MainState& state, int pair, const Phases& first, const Phases& second) {
  auto& coherence = state.shared.coherenceSpectrumHistory[state.blockCount][pair];
  phaseCoherences(first.data(), second.data(), coherence.data());
  renewMeans(state.meanCoherence[pair].data(), coherence.data(), state.blockCount);
}

Fixed averageCorrelation(const Bounded<float, 202>& correlation, int blocks) {
  Fixed sum;
  for (int block = 1; block <= blocks; ++block) sum += Fixed::nearest(static_cast<double>(correlation[block]));
  return floorToTenth(Fixed::nearest(sum / Fixed(blocks)));
}

void printAverage(MainState& state) {
  Surface& strip = state.window.Picture6;
  strip.point(470, 170, Colour::white);
  if (state.channelPair == 1) strip.print("Syncro 1-2 media= " + shortestDecimal(state.syncAverage[1]));
  if (state.channelPair == 2) strip.print("Syncro 3-4 media= " + shortestDecimal(state.syncAverage[2]));
}

/// Frequency runs upward, four units per index; +100 is at the left edge, 0 in the middle.
void drawCoherenceGuides(Surface& graph) {
  for (int y = 1; y <= 249; y += 8) graph.point(100, y, Colour::blue);
  for (int y = 43; y <= 258; y += 43)
    for (int x = 1; x <= 191; x += 10) graph.point(x, y, Colour::blue);
}

}  // namespace

void MainState::computeCoherence() {
  Bounded<Phases, 4> phases;
  for (int channel = 1; channel <= 4; ++channel)
    phasesOf(spectrumRe[channel].data(), spectrumIm[channel].data(), phases[channel].data());
  for (int pair = 1; pair <= eeg::pairCount; ++pair) {
    const auto [first, second] = eeg::channelsOfPair(pair);
    keepCoherence(*this, pair, phases[first], phases[second]);
  }
}

void MainState::summariseSynchrony() {
  Surface& strip = window.Picture6;
  strip.clear();
  drawTrendScale(strip);
  for (int pair = 1; pair <= eeg::pairCount; ++pair)
    syncAverage[pair] = averageCorrelation(shared.coherenceHistory[pair], shared.fileBlockCount);
  drawTrend(strip, shared.coherenceHistory[channelPair], shared.fileBlockCount);
  printAverage(*this);
  drawNoteMarks(*this);
  stripPair = channelPair;
}

void MainState::drawCoherenceGraph() {
  Surface& graph = window.coherenceGraph;
  graph.clear();
  drawCoherenceGuides(graph);
  const auto& coherence = meanCoherence[channelPair];
  const auto xOf = [&](int index) { return Int16::nearest(100.0 - static_cast<double>(coherence[index])); };
  for (int i = 1; i <= displayedBins; ++i) graph.line(xOf(i - 1), 258 - 4 * (i - 1), xOf(i), 258 - 4 * i, Colour::blue);
  coherencePair = channelPair;
}

}  // namespace korvinel
