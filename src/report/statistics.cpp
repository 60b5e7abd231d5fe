#include "report/statistics.h"

#include <cmath>

#include "frame/program_values.h"
#include "report/band_rows.h"
#include "report/report_state.h"
#include "values/number_text.h"
#include "values/runtime_error.h"

namespace korvinel {
namespace {

Fixed sumOf(const ReportSpectrum& spectrum, eeg::IndexRange range) {
  Fixed sum;
  for (int k = range.first; k <= range.last; ++k) sum += Fixed::nearest(static_cast<double>(spectrum[k]));
  return sum;
}

/// Blocks of the interval, both ends included, in 16 bits; 0 or less when it is reversed.
Int16 blocksOf(const ProgramValues& shared) {
  const Int16 distance = shared.analysisLastBlock - shared.analysisFirstBlock;
  return distance + 1;
}

using History = Bounded<float, 202, 4, 130>;

/// Means of one channel or pair over the interval's blocks, indexes 1..64.
ReportSpectrum meanOfBlocks(const History& history, int row, const ProgramValues& shared) {
  ReportSpectrum mean;
  for (int block = shared.analysisFirstBlock; block <= shared.analysisLastBlock; ++block)
    for (int k = 1; k <= eeg::reportedIndexes; ++k) mean[k] += history[block][row][k];
  for (int k = 1; k <= eeg::reportedIndexes; ++k) mean[k] = meanToTenth(static_cast<double>(mean[k]), blocksOf(shared));
  return mean;
}

float meanCoherenceOf(int pair, const ProgramValues& shared) {
  Fixed sum;
  for (int block = shared.analysisFirstBlock; block <= shared.analysisLastBlock; ++block)
    sum += Fixed::nearest(static_cast<double>(shared.coherenceHistory[pair][block]));
  return meanToTenth(sum.toDouble(), blocksOf(shared));
}

void writeHeader(ReportState& state) {
  if (!state.shared.inItalian()) return;
  state.reportLines[1] = "File: " + state.shared.dataFileName;
  state.reportLines[2] = "Nome: " + state.shared.subjectName;
  state.reportLines[3] = "Data: " + state.reportDate;
  state.reportLines[4] = "Scala: " + std::to_string(state.microvoltScale) + " microvolts";
}

}  // namespace

float meanToTenth(double sum, int blocks) {
  if (blocks == 0) throw RuntimeError(Cause::emptyInterval);
  const auto mean = static_cast<float>(sum / blocks);
  return static_cast<float>(floorToTenth(static_cast<double>(mean)) + 0.0);
}

Fixed bandMaximum(const ReportSpectrum& spectrum, eeg::IndexRange range) {
  Fixed largest;
  for (int k = range.first; k <= range.last; ++k) {
    const Fixed value = Fixed::nearest(static_cast<double>(spectrum[k]));
    if (value > largest) largest = value;
  }
  return floorToTenth(largest);
}

Fixed bandMean(const ReportSpectrum& spectrum, eeg::IndexRange range) {
  const double tenths = (sumOf(spectrum, range) * Fixed(10)) / Fixed(range.size());
  return Fixed::nearest(std::floor(tenths) / 10.0);
}

void levelCoherence(ReportSpectrum& spectrum, float pairCoherence) {
  const Fixed mean = Fixed::nearest(sumOf(spectrum, eeg::reportedRange) / Fixed(eeg::reportedIndexes));
  const Fixed shift = Fixed::nearest(static_cast<double>(pairCoherence)) - mean;
  for (int k = 1; k <= eeg::reportedIndexes; ++k)
    spectrum[k] = static_cast<float>((Fixed::nearest(static_cast<double>(spectrum[k])) + shift).toDouble());
}

void capCoherence(ReportSpectrum& spectrum) {
  Fixed largest;
  for (int k = 1; k <= eeg::reportedIndexes; ++k) {
    const Fixed value = Fixed::nearest(static_cast<double>(spectrum[k]));
    if (value > largest) largest = value;
  }
  if (largest < Fixed(100)) return;
  for (int k = 1; k <= eeg::reportedIndexes; ++k)
    spectrum[k] = static_cast<float>(static_cast<double>(spectrum[k]) * 100.0 / largest.toDouble());
}

void ReportState::computeReportSpectra() {
  for (int row = 1; row <= 4; ++row) {
    meanSpectrum[row] = meanOfBlocks(shared.spectrumHistory, row, shared);
    coherenceSpectrum[row] = meanOfBlocks(shared.coherenceSpectrumHistory, row, shared);
    pairCoherence[row] = meanCoherenceOf(row, shared);
    levelCoherence(coherenceSpectrum[row], pairCoherence[row]);
    capCoherence(coherenceSpectrum[row]);
  }
  writeHeader(*this);
}

void ReportState::computeBandValues() {
  for (int channel = 1; channel <= 4; ++channel) {
    for (const BandRow& row : bandRows) {
      (this->*row.maximum)[channel] = bandMaximum(meanSpectrum[channel], row.band.indexes);
      (this->*row.mean)[channel] = bandMean(meanSpectrum[channel], row.band.indexes);
    }
  }
}

}  // namespace korvinel
