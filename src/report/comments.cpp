#include <algorithm>
#include <array>

#include "eeg/bands.h"
#include "frame/program_values.h"
#include "platform/companion_windows.h"
#include "platform/platform.h"
#include "platform/surface.h"
#include "report/dotted_text.h"
#include "report/report_geometry.h"
#include "report/report_state.h"
#include "report/report_window.h"
#include "report/statistics.h"
#include "report/verdicts.h"

namespace korvinel {
namespace {

using platform::Colour;

/// The ten indexes of the alpha band, divided by nine: the settled divisor.
Fixed noiseInAlpha(const ReportState& state, int channel) {
  Fixed sum;
  for (int k = eeg::alpha.indexes.first; k <= eeg::alpha.indexes.last; ++k) sum += state.noiseCurve[channel][k];
  return Fixed::nearest(sum / Fixed(9));
}

/// The alpha maxima of a pair of sites over the noise in that band.
double alphaRatio(const ReportState& state, int left, int right) {
  return (state.maxAlpha[left] + state.maxAlpha[right]) / (noiseInAlpha(state, left) + noiseInAlpha(state, right));
}

void judgeAlpha(ReportState& state) {
  const double frontal = alphaRatio(state, 1, 2);
  const double temporal = alphaRatio(state, 3, 4);
  if (!state.shared.inItalian()) return;
  state.reportLines[6] = frontalAlphaVerdict(alphaClass(frontal));
  state.commentScores[1] = static_cast<float>(alphaClass(frontal));
  state.reportLines[7] = temporalAlphaVerdict(alphaClass(temporal));
  state.commentScores[2] = static_cast<float>(alphaClass(temporal));
}

/// Mean level of the whole spectrum, at least half a microvolt.
Fixed meanLevel(const ReportSpectrum& spectrum) {
  Fixed sum;
  for (int k = 1; k <= eeg::reportedIndexes; ++k) sum += Fixed::nearest(static_cast<double>(spectrum[k]));
  constexpr Fixed least = Fixed::fromCount(Fixed::scale / 2);
  return std::max(Fixed::nearest(sum / Fixed(eeg::reportedIndexes)), least);
}

void judgeSymmetry(ReportState& state) {
  // The frontal levels decide both lines: the temporal verdict follows the frontal ratio.
  const double ratio = meanLevel(state.meanSpectrum[1]) / meanLevel(state.meanSpectrum[2]);
  if (!state.shared.inItalian()) return;
  const int symmetry = symmetryClass(ratio);
  state.reportLines[9] = frontalSymmetryVerdict(symmetry);
  state.reportLines[10] = temporalSymmetryVerdict(symmetry);
  state.commentScores[3] = state.commentScores[4] = static_cast<float>(symmetry);
}

void judgeCoherence(ReportState& state) {
  if (!state.shared.inItalian()) return;
  const int frontal = frontalCoherenceClass(state.pairCoherence[1]);
  const int temporal = temporalCoherenceClass(state.pairCoherence[2]);
  state.reportLines[12] = frontalCoherenceVerdict(frontal);
  state.reportLines[13] = temporalCoherenceVerdict(temporal);
  state.commentScores[5] = static_cast<float>(frontal);
  state.commentScores[6] = static_cast<float>(temporal);
}

void printLines(ReportState& state) {
  constexpr int lastHeaderLine = 4;
  platform::Surface& ground = state.window.ground;
  for (int i = 0; i <= 14; ++i) {
    ground.setInk(i <= lastHeaderLine ? Colour::blue : Colour::lightBlue);
    if (state.reportLines[i].empty()) continue;  // a dot alone would only be a speck
    const int y = report_geometry::firstLine + report_geometry::lineDistance * (i - 1);
    printOnDot(ground, report_geometry::textColumn, y, Colour::white, state.reportLines[i]);
  }
}

void chooseComments(ReportState& state) {
  if (!state.shared.inItalian()) return;
  const auto& scores = state.commentScores;
  auto& texts = state.shared.commentTexts;
  commentAlpha(Int16::nearest(static_cast<double>(scores[1] + scores[2])), texts[1]);
  texts[2] = anxietyComment(scores[1], scores[2], scores[5]);
  commentSymmetry(scores[3], texts[3]);
  commentSymmetry(scores[4], texts[4]);
  commentCoherence(scores[5], texts[5]);
}

std::array<std::string, CommentWindow::linesOfComment> commentLines(const Bounded<std::string, 5>& texts) {
  return {" Commenti circa i segnali EEG registrati:",
          " ",
          " Qualita' del ritmo Alfa = " + texts[1],
          " (Un ritmo Alfa sufficente o alto indica buon rilassamento mentale",
          " un Alfa basso indica una mente sempre attiva o reattiva.)",
          " Livello Ansia = " + texts[2],
          " (un tratto ansioso e' associato a basso Alfa e bassa coerenza frontale.)",
          " Simmetria fra gli emisferi, frontale = " + texts[3],
          " Simmetria fra gli emisferi, temporale = " + texts[4],
          " (uno sbilanciamento a sinistra indica tendenza a far prevalere",
          " l'ambito razionale, a destra significa prevalenza ambito emozionale.)",
          " Coerenza fra gli emisferi = " + texts[5],
          " (In sede frontale un valore piu' elevato della coerenza (sincronia)",
          " indica un buon livello di comunicazione fra i due emisferi.)",
          " ",
          " Questi commenti sono basati  su una analisi statistica di tipo ",
          " sperimentale e non costituiscono in alcun modo un responso medico.",
          " La qualita' dei segnali EEG registrati e' essenziale per il risultato."};
}

}  // namespace

void ReportState::buildVerdicts() {
  for (int line = 6; line <= 14; ++line) reportLines[line].clear();
  judgeAlpha(*this);
  judgeSymmetry(*this);
  judgeCoherence(*this);
  printLines(*this);
}

void ReportState::showCommentReport() {
  chooseComments(*this);
  host.windows.showComments();
  if (!shared.inItalian()) return;
  for (const std::string& line : commentLines(shared.commentTexts)) comments.text.printBelow(line);
}

}  // namespace korvinel
