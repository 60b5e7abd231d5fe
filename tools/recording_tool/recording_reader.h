#pragma once

#include <memory>
#include <string>

#include "platform/files.h"
#include "recording/file_header.h"
#include "values/bounded.h"

namespace korvinel::tool {

using Block = Bounded<float, 4, 258>;  ///< [channel 1..4][sample 1..256], sample units, mid level 128

/// The raw samples of a recording, block after block to its end, however long it is.
class RecordingReader {
 public:
  /// Reads the header and the notes. ToolError if that fails or the version is unknown.
  explicit RecordingReader(const std::string& path);

  [[nodiscard]] const FileHeader& header() const { return header_; }
  /// Reads the next block; missing samples are 128. False at the end. ToolError if the disk cannot be read.
  bool next(Block& block);
  [[nodiscard]] int missingSamples() const { return missingSamples_; }  ///< so far

 private:
  std::string path_;
  std::unique_ptr<platform::InputFile> file_;
  FileHeader header_;
  int missingSamples_ = 0;
};

}  // namespace korvinel::tool
