#pragma once

#include <string>

#include "recording/edf_export.h"
#include "recording/workbench.h"

namespace korvinel::tool {

/// Where the numbers of an analysis are written; "" = nowhere.
struct AnalyseTargets {
  std::string json;  ///< "-" is standard output
  std::string csvFolder;
  bool force = false;
};

void analyse(const std::string& recording, const AnalysisOptions& options, const AnalyseTargets& targets);
void report(const std::string& recording, const AnalysisOptions& options, const std::string& output, bool force);
void exportRecording(const std::string& recording, const std::string& output, const ExportOptions& options);

}  // namespace korvinel::tool
