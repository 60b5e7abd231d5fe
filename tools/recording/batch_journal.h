#pragma once

#include <map>
#include <memory>
#include <mutex>
#include <string>

#include "platform/files.h"
#include "recording/batch.h"

namespace korvinel::tool {

/// The rows that an unfinished batch has so far, a line of JSON each, in a file beside the table. The first line tells
/// what the rows were calculated with.
class BatchJournal {
 public:
  /// Opens TABLE.part. Where it exists it is continued with `resume`, replaced with `force`, and else a ToolError; a
  /// UsageError where it is to be continued with other options than it was begun with.
  BatchJournal(const BatchOptions& options);

  /// The row of a recording that has not changed since it was written.
  [[nodiscard]] const BatchRow* rowOf(const std::string& recording) const;
  /// Safe to be called by several threads.
  void add(const std::string& recording, const BatchRow& row);
  void remove();  ///< when the table is whole

 private:
  void readRows(const std::string& signature);

  std::string path_;
  std::map<std::string, BatchRow> rows_;  ///< by recording and its size and time
  std::unique_ptr<platform::OutputFile> file_;
  std::mutex mutex_;
};

}  // namespace korvinel::tool
