#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"
#include "recording_tool/unfinished_file.h"

namespace korvinel::tool {

/// A file that appears under its name only when complete: it is written under another name beside it, forced onto the
/// disk, and renamed. Without commit(), or if the program is interrupted, nothing is left of it.
class SafeOutput {
 public:
  /// ToolError if a file of this name exists, unless `force` allows replacing it.
  SafeOutput(std::string path, bool force);
  ~SafeOutput();
  SafeOutput(const SafeOutput&) = delete;
  SafeOutput& operator=(const SafeOutput&) = delete;

  [[nodiscard]] const std::string& path() const { return path_; }
  /// Its path while it is being written.
  [[nodiscard]] const std::string& temporaryPath() const { return unfinished_->path(); }
  /// Closes the file, for libraries that open it themselves: some systems do not allow a second writer.
  void handOver() { file_.reset(); }

  void write(std::string_view bytes);  ///< ToolError if not all bytes could be written; not after handOver()
  void commit();                       ///< ToolError if the file cannot be forced onto the disk or renamed

 private:
  std::string path_;
  bool force_;
  std::unique_ptr<UnfinishedFile> unfinished_;
  std::unique_ptr<platform::OutputFile> file_;
};

/// Writes a complete file in this way.
void writeWhole(const std::string& path, std::string_view bytes, bool force);

/// UsageError if `output`, by whatever name or link, is one of the files being read.
void requireApart(const std::string& output, const std::vector<std::string>& inputs);

/// ToolError if `path` exists and may not be replaced, UsageError if it is the file being read.
void requireWritable(const std::string& path, const std::string& input, bool force);

}  // namespace korvinel::tool
