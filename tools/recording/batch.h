#pragma once

#include <string>
#include <vector>

#include "recording/workbench.h"

namespace korvinel::tool {

struct BatchOptions {
  AnalysisOptions analysis;
  std::string output;
  int jobs = 1;         ///< recordings analysed at a time
  bool resume = false;  ///< keeps the rows of an interrupted run
  bool force = false;
};

/// The recordings among these files and, however deep, in these folders: every file that is named, and what ends in
/// .QVD; in the order of their names, each once. ToolError where one does not exist.
[[nodiscard]] std::vector<std::string> recordingsIn(const std::vector<std::string>& places);

/// Analyses every recording and writes a table, one row each in the order of `recordings`. A recording that cannot be
/// analysed has its reason in the row's last column. Rows that are finished are kept beside the table until it is
/// whole, so that an interrupted run can be resumed. Returns the exit code: `failed` where a row has an error.
int runBatch(const std::vector<std::string>& recordings, const BatchOptions& options);

/// The line of column names, and the row of one recording.
[[nodiscard]] std::string batchTitle();
struct BatchRow {
  std::string line;  ///< with line end
  bool hasError = false;
};
[[nodiscard]] BatchRow batchRow(const std::string& recording, const AnalysisOptions& options);

}  // namespace korvinel::tool
