#pragma once

#include <cstdint>
#include <string>

#include "platform/files.h"

namespace korvinel {

/// What a file is by its first line, whatever it is called.
enum class TemporaryKind {
  temporary,
  finished,  ///< a finished recording, whose blocks are at other bytes
  other,
};

/// Reads a temporary file block by block. A RuntimeError if the file cannot be read.
class TemporaryReader {
 public:
  /// Reads the header line. `file` must live as long.
  explicit TemporaryReader(platform::InputFile& file);

  [[nodiscard]] TemporaryKind kind() const { return kind_; }
  [[nodiscard]] const std::string& subject() const { return subject_; }
  [[nodiscard]] const std::string& date() const { return date_; }  ///< "dd/mm/yyyy" of a temporary file
  /// The bytes of the next block unchanged, fewer at the end of the file.
  [[nodiscard]] std::string nextBlock();
  [[nodiscard]] std::int64_t position() const { return file_.position(); }

 private:
  [[nodiscard]] std::string takeLine();
  void readHeader(const std::string& line);

  platform::InputFile& file_;
  TemporaryKind kind_ = TemporaryKind::other;
  std::string subject_, date_;
};

/// Whether a complete block is as the program writes it: record ends in their places, no sample with a value that is
/// never written.
[[nodiscard]] bool isSound(const std::string& block);

}  // namespace korvinel
