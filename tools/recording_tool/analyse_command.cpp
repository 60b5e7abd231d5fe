#include "recording_tool/analyse_command.h"

#include <filesystem>
#include <iostream>

#include "recording_tool/analysis_output.h"
#include "recording_tool/csv_export.h"
#include "recording_tool/edf_export.h"
#include "recording_tool/host_files.h"
#include "recording_tool/messages.h"
#include "recording_tool/safe_output.h"
#include "recording_tool/tool_error.h"
#include "recording_tool/utf8_path.h"
#include "values/code_page.h"

namespace korvinel::tool {
namespace {

namespace fs = std::filesystem;

void writeTables(const Workbench& bench, const AnalyseTargets& targets, const std::vector<std::string>& inputs) {
  std::error_code error;
  fs::create_directories(pathOf(targets.csvFolder), error);
  if (error) throw ToolError(targets.csvFolder, "cannot be created: " + error.message());
  const auto tables = analysisTables(bench);
  const auto placeOf = [&](const std::string& name) { return utf8Of(pathOf(targets.csvFolder) / name); };
  for (const auto& [name, table] : tables) {
    requireApart(placeOf(name), inputs);
    if (!targets.json.empty() && absolutePath(placeOf(name)) == absolutePath(targets.json))
      throw UsageError(targets.json + ": is also the table " + name);
    requireWritable(placeOf(name), "", targets.force);
  }
  for (const auto& [name, table] : tables) writeWhole(placeOf(name), table, targets.force);
}

}  // namespace

std::unique_ptr<Workbench> analysed(const std::string& recording, const AnalysisOptions& options) {
  auto bench = std::make_unique<Workbench>(options);
  bench->open(recording);
  bench->makeReport();
  return bench;
}

void analyse(const std::string& recording, const AnalysisOptions& options, const AnalyseTargets& targets) {
  if (targets.json.empty() && targets.csvFolder.empty()) throw UsageError("analyse needs --json OUT or --csv DIR");
  const bool toOutput = targets.json == "-";
  const std::vector<std::string> inputs = {recording, options.factorsFile};
  if (!targets.json.empty() && !toOutput) {
    requireApart(targets.json, inputs);
    requireWritable(targets.json, recording, targets.force);
  }
  const auto bench = analysed(recording, options);
  if (!targets.csvFolder.empty()) writeTables(*bench, targets, inputs);
  if (toOutput)
    std::cout << textOf(analysisJson(*bench));
  else if (!targets.json.empty())
    writeWhole(targets.json, textOf(analysisJson(*bench)), targets.force);
  if (bench->reportFault) tell(recording, "the report ends early: " + reportError(*bench));
}

void exportRecording(const std::string& recording, const std::string& output, const ExportOptions& options) {
  const std::string ending = upperCase(utf8Of(pathOf(output).extension()));
  if (ending == ".EDF") return exportEdf(recording, output, options);
  if (ending == ".CSV") return exportCsv(recording, output, options);
  throw UsageError(output + ": an export is an .edf or .csv file");
}

}  // namespace korvinel::tool
