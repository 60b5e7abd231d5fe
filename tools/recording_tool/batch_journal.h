#pragma once

#include <map>
#include <memory>
#include <mutex>
#include <string>

#include "platform/files.h"
#include "recording_tool/batch.h"

namespace korvinel::tool {

/// The rows of an unfinished batch, one line of JSON each, in a file beside the table. The first line holds the options
/// that the rows were calculated with.
class BatchJournal {
 public:
  /// Opens TABLE.part. If it exists, it is continued with `resume`, replaced with `force`, and otherwise a ToolError; a
  /// UsageError if it was begun with other options than those of the run that would continue it.
  BatchJournal(const BatchOptions& options);

  /// The row of a recording that has not changed since the row was written.
  [[nodiscard]] const BatchRow* rowOf(const std::string& recording) const;
  /// Thread-safe.
  void add(const std::string& recording, const BatchRow& row);
  void remove();  ///< once the table is complete

 private:
  void readRows(const std::string& signature);

  std::string path_;
  std::map<std::string, BatchRow> rows_;  ///< by recording and its size and time
  std::unique_ptr<platform::OutputFile> file_;
  std::mutex mutex_;
};

}  // namespace korvinel::tool
