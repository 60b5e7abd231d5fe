#include "recording_tool/analysis_output.h"
#include "recording_tool/fault_text.h"
#include "report/band_rows.h"
#include "report/noise_curve.h"
#include "values/runtime_error.h"

namespace korvinel::tool {
namespace {

using eeg::keptIndexes;

template <typename History>
Json perBlock(const History& history, int blocks) {
  Json all = Json::array();
  for (int block = 1; block <= blocks; ++block) all.push_back(rowsJson(history[block], keptIndexes));
  return all;
}

Json exponentsOf(const ReportState& report) {
  Json exponents = Json::array();
  for (int channel = 1; channel <= 4; ++channel) exponents.push_back(fitNoise(report.meanSpectrum[channel]).exponent);
  return exponents;
}

Json linesOf(const ReportState& report) {
  Json lines = Json::object();
  for (const int line : {6, 7, 9, 10, 12, 13}) lines[std::to_string(line)] = report.reportLines[line];
  return lines;
}

Json commentsOf(const ProgramValues& shared) {
  Json texts = Json::array();
  for (int i = 1; i <= 5; ++i) texts.push_back(shared.commentTexts[i]);
  return texts;
}

Json reportJson(const Workbench& bench) {
  const ReportState& report = bench.report;
  Json json = {{"first", static_cast<int>(bench.shared.analysisFirstBlock)},
               {"last", static_cast<int>(bench.shared.analysisLastBlock)}};
  if (report.reached >= ReportStep::spectra) {
    json["meanSpectrum"] = rowsJson(report.meanSpectrum, eeg::reportedIndexes);
    json["coherenceSpectrum"] = rowsJson(report.coherenceSpectrum, eeg::reportedIndexes);
    json["pairCoherence"] = rowJson(report.pairCoherence, 4);
  }
  if (report.reached >= ReportStep::bandValues)
    for (const auto& [name, values] : bandsOf(report)) json[name] = rowJson(*values, 4);
  if (report.reached >= ReportStep::noise) {
    json["noiseCurve"] = rowsJson(report.noiseCurve, eeg::reportedIndexes);
    json["noiseExponent"] = exponentsOf(report);
  }
  if (report.reached >= ReportStep::verdicts) {
    json["reportLines"] = linesOf(report);
    json["commentScores"] = rowJson(report.commentScores, 6);
    json["commentTexts"] = commentsOf(bench.shared);
  }
  if (bench.reportFault) json["error"] = reportError(bench);
  return json;
}

}  // namespace

std::string reportError(const Workbench& bench) {
  if (!bench.reportFault) return "";
  switch (kindOf(bench.reportFault->cause)) {
    case Fault::divisionByZero: return "division by zero";
    case Fault::overflow: return "overflow";
    case Fault::subscript: return "subscript out of range";
    case Fault::input:
    case Fault::output: return reasonOf(*bench.reportFault);
  }
  return "";
}

std::vector<BandValues> bandsOf(const ReportState& report) {
  std::vector<BandValues> maxima, means;
  for (const BandRow& row : bandRows) {
    maxima.emplace_back(std::string("max") + row.band.nameInReport, &(report.*row.maximum));
    means.emplace_back(std::string("mean") + row.band.nameInReport, &(report.*row.mean));
  }
  maxima.insert(maxima.end(), means.begin(), means.end());
  return maxima;
}

std::vector<std::string> bandValueNames() {
  std::vector<std::string> names;
  for (const char* kind : {"max", "mean"})
    for (const eeg::Band& band : eeg::bands) names.push_back(kind + std::string(band.nameInReport));
  return names;
}

Json analysisJson(const Workbench& bench) {
  const MainState& state = bench.state;
  const ProgramValues& shared = bench.shared;
  const int blocks = bench.scannedBlocks();
  Json json = {{"subject", shared.subjectName},
               {"recordingDate", state.recordingDate},
               {"fileVersionTag", state.fileVersionTag},
               {"notes", notesJson(state.noteCount, state.noteTimes, state.noteTexts)},
               {"fileBlockCount", static_cast<int>(shared.fileBlockCount)}};
  json["spectrumHistory"] = perBlock(shared.spectrumHistory, blocks);
  json["coherenceSpectrumHistory"] = perBlock(shared.coherenceSpectrumHistory, blocks);
  json["coherenceHistory"] = rowsJson(shared.coherenceHistory, blocks);
  json["meanCoherence"] = rowsJson(state.meanCoherence, keptIndexes);
  json["syncAverage"] = rowJson(state.syncAverage, 4);
  json["report"] = reportJson(bench);
  return json;
}

}  // namespace korvinel::tool
