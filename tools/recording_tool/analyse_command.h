#pragma once

#include <memory>
#include <string>

#include "recording_tool/export_options.h"
#include "recording_tool/workbench.h"

namespace korvinel::tool {

/// Where the numbers of an analysis are written; "" = nowhere.
struct AnalyseTargets {
  std::string json;  ///< "-" is standard output
  std::string csvFolder;
  bool force = false;
};

/// A bench with the recording opened and its report made.
[[nodiscard]] std::unique_ptr<Workbench> analysed(const std::string& recording, const AnalysisOptions& options);

/// Writes the numbers of a recording. ToolError if it cannot be read or a target cannot be written, UsageError without
/// a target.
void analyse(const std::string& recording, const AnalysisOptions& options, const AnalyseTargets& targets);

/// Writes a recording in the form that the ending of `output` names. UsageError for any but .edf and .csv.
void exportRecording(const std::string& recording, const std::string& output, const ExportOptions& options);

}  // namespace korvinel::tool
