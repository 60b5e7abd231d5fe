#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"
#include "recording/unfinished_file.h"

namespace korvinel::tool {

/// A file that appears under its name only when it is whole: it is written beside it, put on the disk, and renamed.
/// Without commit(), and where the program is interrupted, nothing is left of it.
class SafeOutput {
 public:
  /// ToolError where a file of this name exists, unless `force` lets it be replaced.
  SafeOutput(std::string path, bool force);
  ~SafeOutput();
  SafeOutput(const SafeOutput&) = delete;
  SafeOutput& operator=(const SafeOutput&) = delete;

  [[nodiscard]] const std::string& path() const { return path_; }
  /// Where the file is written meanwhile.
  [[nodiscard]] const std::string& temporaryPath() const { return unfinished_->path(); }
  /// Closes the file, for libraries that open it themselves: some systems let nobody write to a file that is open.
  void handOver() { file_.reset(); }

  void write(std::string_view bytes);  ///< ToolError where not all bytes could be written; not after handOver()
  void commit();                       ///< ToolError where the file cannot be put on the disk or renamed

 private:
  std::string path_;
  bool force_;
  std::unique_ptr<UnfinishedFile> unfinished_;
  std::unique_ptr<platform::OutputFile> file_;
};

/// Writes a whole file that way.
void writeWhole(const std::string& path, std::string_view bytes, bool force);

/// UsageError where `output`, by whatever name or link, is one of the files that are being read.
void requireApart(const std::string& output, const std::vector<std::string>& inputs);

/// ToolError where `path` exists and may not be replaced, UsageError where it is the file that is being read.
void requireWritable(const std::string& path, const std::string& input, bool force);

}  // namespace korvinel::tool
