#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/files.h"
#include "recording/file_header.h"
#include "recording/temporary_reader.h"

namespace korvinel {

/// A temporary file with its side file, opened for a recovery.
class InterruptedFile {
 public:
  /// A RuntimeError if the temporary file cannot be read; a side file that cannot be read counts as damaged.
  InterruptedFile(platform::Files& files, const std::string& temporaryFile);

  [[nodiscard]] bool isTemporary() const { return reader_.kind() == TemporaryKind::temporary; }
  [[nodiscard]] const FileHeader& header() const { return header_; }
  [[nodiscard]] const std::string& dataFileName() const { return dataFileName_; }  ///< "" = unknown
  [[nodiscard]] const std::string& sideFile() const { return sideFile_; }          ///< its path; "" = none
  [[nodiscard]] bool notesAreDamaged() const { return notesAreDamaged_; }

  /// The next three read the blocks, once, and return how many there are. A RuntimeError if one file cannot be read or
  /// written.
  [[nodiscard]] std::int64_t countBlocks();
  std::int64_t writeTo(platform::OutputFile& file);                       ///< the whole data file
  [[nodiscard]] std::int64_t compareWith(platform::InputFile& dataFile);  ///< 0 if it is not exactly that file

 private:
  void takeSideFile(platform::Files& files);

  std::unique_ptr<platform::InputFile> file_;
  TemporaryReader reader_;
  FileHeader header_;
  std::string dataFileName_, sideFile_;
  bool notesAreDamaged_ = false;
};

}  // namespace korvinel
