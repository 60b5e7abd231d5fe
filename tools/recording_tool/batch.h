#pragma once

#include <string>
#include <vector>

#include "recording_tool/workbench.h"

namespace korvinel::tool {

struct BatchOptions {
  AnalysisOptions analysis;
  std::string output;
  int jobs = 1;         ///< recordings analysed at a time
  bool resume = false;  ///< keeps the rows of an interrupted run
  bool force = false;
};

/// The recordings among these files and, at any depth, in these folders: every file named, and those ending in .QVD;
/// sorted by name, each once. ToolError if one does not exist.
[[nodiscard]] std::vector<std::string> recordingsIn(const std::vector<std::string>& places);

/// Analyses every recording and writes a table, one row each in the order of `recordings`. If a recording cannot be
/// analysed, the row's last column says why. Finished rows are kept in a file beside the table until it is complete, so
/// that an interrupted run can be resumed. Returns the exit code: `failed` if a row has an error.
int runBatch(const std::vector<std::string>& recordings, const BatchOptions& options);

/// The header line, and the row of one recording.
[[nodiscard]] std::string batchTitle();
struct BatchRow {
  std::string line;  ///< including the line end
  bool hasError = false;
};
[[nodiscard]] BatchRow batchRow(const std::string& recording, const AnalysisOptions& options);

}  // namespace korvinel::tool
