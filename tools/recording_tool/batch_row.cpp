#include <algorithm>

#include "eeg/montage.h"
#include "recording_tool/analysis_output.h"
#include "recording_tool/batch.h"
#include "recording_tool/channel_names.h"
#include "recording_tool/csv_text.h"
#include "recording_tool/host_files.h"
#include "recording_tool/inspection.h"
#include "report/noise_curve.h"

namespace korvinel::tool {
namespace {

void addReport(CsvLine& line, const Workbench& bench) {
  const ReportState& report = bench.report;
  for (const auto& [name, values] : bandsOf(report))
    for (int channel = 1; channel <= 4; ++channel) line.add((*values)[channel]);
  for (int pair = 1; pair <= 4; ++pair) line.add(report.pairCoherence[pair]);
  for (int channel = 1; channel <= 4; ++channel) line.add(fitNoise(report.meanSpectrum[channel]).exponent);
}

int reportColumns() { return (static_cast<int>(bandValueNames().size()) + 2) * eeg::channelCount; }

void addBlanks(CsvLine& line, int count) {
  for (int i = 0; i < count; ++i) line.add("");
}

std::string fields(const std::string& recording, const Workbench& bench, const std::string& damage) {
  CsvLine line;
  line.add(recording)
      .add(bench.shared.subjectName)
      .add(bench.state.recordingDate.substr(0, 10))
      .add(bench.state.fileVersionTag);
  line.add(static_cast<int>(bench.state.noteCount)).add(static_cast<int>(bench.shared.fileBlockCount));
  line.add(static_cast<int>(bench.shared.analysisFirstBlock)).add(static_cast<int>(bench.shared.analysisLastBlock));
  for (int pair = 1; pair <= 4; ++pair) line.add(bench.state.syncAverage[pair]);
  const ReportStep reached = bench.report.reached;
  if (reached >= ReportStep::bandValues)
    addReport(line, bench);
  else
    addBlanks(line, reportColumns());
  for (int i = 1; i <= 6; ++i)
    if (reached >= ReportStep::verdicts)
      line.add(bench.report.commentScores[i]);
    else
      line.add("");
  return line.add(damage).add(reportError(bench)).ended();
}

/// The first defect and the number of defects.
std::string damageOf(const std::string& recording) {
  const Inspection found = inspect(*openInput(recording));
  if (found.defects.empty()) return "";
  const std::string more =
      found.defects.size() > 1 ? " (and " + std::to_string(found.defects.size() - 1) + " more)" : "";
  return found.defects.front().what + ", at byte " + std::to_string(found.defects.front().offset) + more;
}

BatchRow errorRow(const std::string& recording, const std::string& reason) {
  CsvLine line;
  line.add(recording);
  const std::string title = batchTitle();
  addBlanks(line, static_cast<int>(std::count(title.begin(), title.end(), ',')) - 1);
  const std::string prefix = recording + ": ";
  return {line.add(reason.starts_with(prefix) ? reason.substr(prefix.size()) : reason).ended(), true};
}

}  // namespace

std::string batchTitle() {
  CsvLine title;
  for (const char* name : {"file", "subject", "date", "version", "notes", "blocks", "first", "last"}) title.add(name);
  for (int pair = 1; pair <= 4; ++pair) title.add(std::string("synchrony ") + pairNames[pair]);
  for (const std::string& band : bandValueNames())
    for (int channel = 1; channel <= 4; ++channel) title.add(band + " " + channelNames[channel]);
  for (int pair = 1; pair <= 4; ++pair) title.add(std::string("coherence ") + pairNames[pair]);
  for (int channel = 1; channel <= 4; ++channel) title.add(std::string("noiseExponent ") + channelNames[channel]);
  for (const char* score : {"frontal alpha", "temporal alpha", "frontal symmetry", "temporal symmetry",
                            "F1-F2 coherence", "T5-T6 coherence"})
    title.add(std::string("score ") + score);
  return title.add("damage").add("error").ended();
}

BatchRow batchRow(const std::string& recording, const AnalysisOptions& options) {
  try {
    const std::string damage = damageOf(recording);
    const auto bench = std::make_unique<Workbench>(options);
    bench->open(recording);
    bench->makeReport();
    return {fields(recording, *bench, damage), bench->reportFault.has_value()};
  } catch (const std::exception& error) {
    return errorRow(recording, error.what());
  }
}

}  // namespace korvinel::tool
