#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/files.h"

namespace korvinel::tool {

/// Reads a temporary file block by block. It is recognised by its header line, never by its name.
class TemporaryReader {
 public:
  /// ToolError if the file cannot be read or its header line is not that of a temporary file.
  explicit TemporaryReader(const std::string& path);

  [[nodiscard]] const std::string& subject() const { return subject_; }
  [[nodiscard]] const std::string& date() const { return date_; }  ///< "dd/mm/yyyy"
  /// The bytes of the next block unchanged, fewer at the end of the file. ToolError if the disk cannot be read.
  [[nodiscard]] std::string nextBlock();
  [[nodiscard]] std::int64_t position() const { return file_->position(); }

 private:
  [[nodiscard]] std::string takeLine();
  void readHeader();
  template <typename Step>
  void reading(Step&& step);

  std::string path_;
  std::unique_ptr<platform::InputFile> file_;
  std::string subject_, date_;
};

/// Whether a complete block is as the program writes it: record ends in their places, no sample with a value that is
/// never written.
[[nodiscard]] bool isSound(const std::string& block);

}  // namespace korvinel::tool
