#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/files.h"
#include "recording/file_header.h"

namespace korvinel::tool {

/// A defect of a recording.
struct Defect {
  std::int64_t offset;  ///< byte at which it begins, from 0
  std::string what;
};

/// The result of inspecting a recording, without analysing it.
struct Inspection {
  FileHeader header;            ///< empty if it cannot be read
  int blocks = 0;               ///< blocks of samples, complete or not
  std::vector<Defect> defects;  ///< in the order of the file
};

/// Inspects a recording from beginning to end, with little memory however long it is. A RuntimeError if the disk cannot
/// be read.
[[nodiscard]] Inspection inspect(platform::InputFile& file);

/// Reads one field of version V4; returns whether it is a number that a sample can have.
[[nodiscard]] bool takeSampleField(ByteSource& source);

}  // namespace korvinel::tool
