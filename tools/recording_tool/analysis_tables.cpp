#include "eeg/spectrum.h"
#include "recording_tool/analysis_output.h"
#include "recording_tool/channel_names.h"
#include "recording_tool/csv_text.h"

namespace korvinel::tool {
namespace {

using eeg::keptIndexes;

std::string hertz(int index) { return shortestDecimal(eeg::hertzOf(index)); }

/// A row for each channel or pair of each block, a column for each frequency.
template <typename History>
std::string historyTable(const History& history, int blocks, const char* rowTitle, const char* const* rowNames) {
  CsvLine title;
  title.add("block").add(rowTitle);
  for (int i = 1; i <= keptIndexes; ++i) title.add(hertz(i) + " Hz");
  std::string table = title.ended();
  for (int block = 1; block <= blocks; ++block)
    for (int row = 1; row <= 4; ++row) {
      CsvLine line;
      line.add(block).add(rowNames[row]);
      for (int i = 1; i <= keptIndexes; ++i) line.add(history[block][row][i]);
      table += line.ended();
    }
  return table;
}

CsvLine pairTitle(const char* first) {
  CsvLine title;
  title.add(first);
  for (int pair = 1; pair <= 4; ++pair) title.add(pairNames[pair]);
  return title;
}

std::string synchronyTable(const Workbench& bench) {
  std::string table = pairTitle("block").ended();
  for (int block = 1; block <= bench.scannedBlocks(); ++block) {
    CsvLine line;
    line.add(block);
    for (int pair = 1; pair <= 4; ++pair) line.add(bench.shared.coherenceHistory[pair][block]);
    table += line.ended();
  }
  CsvLine mean;
  mean.add("mean");
  for (int pair = 1; pair <= 4; ++pair) mean.add(bench.state.syncAverage[pair]);
  return table + mean.ended();
}

std::string meanCoherenceTable(const MainState& state) {
  std::string table = pairTitle("Hz").ended();
  for (int i = 1; i <= keptIndexes; ++i) {
    CsvLine line;
    line.add(hertz(i));
    for (int pair = 1; pair <= 4; ++pair) line.add(state.meanCoherence[pair][i]);
    table += line.ended();
  }
  return table;
}

std::string reportSpectraTable(const ReportState& report) {
  CsvLine title;
  title.add("Hz");
  for (int c = 1; c <= 4; ++c) title.add(std::string("microvolts ") + channelNames[c]);
  for (int c = 1; c <= 4; ++c) title.add(std::string("noise ") + channelNames[c]);
  for (int p = 1; p <= 4; ++p) title.add(std::string("coherence ") + pairNames[p]);
  std::string table = title.ended();
  for (int k = 1; k <= eeg::reportedIndexes; ++k) {
    CsvLine line;
    line.add(hertz(k));
    for (int c = 1; c <= 4; ++c) line.add(report.meanSpectrum[c][k]);
    for (int c = 1; c <= 4; ++c) line.add(report.noiseCurve[c][k]);
    for (int p = 1; p <= 4; ++p) line.add(report.coherenceSpectrum[p][k]);
    table += line.ended();
  }
  return table;
}

std::string reportBandsTable(const ReportState& report) {
  CsvLine title;
  title.add("value");
  for (int c = 1; c <= 4; ++c) title.add(channelNames[c]);
  std::string table = title.ended();
  for (const auto& [name, values] : bandsOf(report)) {
    CsvLine line;
    line.add(name);
    for (int c = 1; c <= 4; ++c) line.add((*values)[c]);
    table += line.ended();
  }
  return table;
}

std::string reportTextsTable(const Workbench& bench) {
  std::string table = "kind,number,score,text\n";
  constexpr int lines[] = {6, 7, 9, 10, 12, 13};
  for (int i = 1; i <= 6; ++i) {
    const int line = lines[i - 1];
    table +=
        CsvLine().add("line").add(line).add(bench.report.commentScores[i]).add(bench.report.reportLines[line]).ended();
  }
  for (int i = 1; i <= 5; ++i)
    table += CsvLine().add("comment").add(i).add("").add(bench.shared.commentTexts[i]).ended();
  return table;
}

}  // namespace

std::vector<std::pair<std::string, std::string>> analysisTables(const Workbench& bench) {
  const int blocks = bench.scannedBlocks();
  const ReportStep reached = bench.report.reached;
  std::vector<std::pair<std::string, std::string>> tables = {
      {"spectra.csv", historyTable(bench.shared.spectrumHistory, blocks, "channel", channelNames)},
      {"coherence-spectra.csv", historyTable(bench.shared.coherenceSpectrumHistory, blocks, "pair", pairNames)},
      {"synchrony.csv", synchronyTable(bench)},
      {"mean-coherence.csv", meanCoherenceTable(bench.state)}};
  if (reached >= ReportStep::noise) tables.emplace_back("report-spectra.csv", reportSpectraTable(bench.report));
  if (reached >= ReportStep::bandValues) tables.emplace_back("report-bands.csv", reportBandsTable(bench.report));
  if (reached >= ReportStep::verdicts) tables.emplace_back("report-texts.csv", reportTextsTable(bench));
  return tables;
}

}  // namespace korvinel::tool
