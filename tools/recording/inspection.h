#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/files.h"
#include "recording/file_header.h"

namespace korvinel::tool {

/// Something that a whole recording does not have.
struct Defect {
  std::int64_t offset;  ///< byte at which it begins, from 0
  std::string what;
};

/// What a look at a recording finds, without analysing it.
struct Inspection {
  FileHeader header;            ///< empty where it cannot be read
  int blocks = 0;               ///< blocks of samples, whole or not
  std::vector<Defect> defects;  ///< in the order of the file
};

/// Goes through a recording from its beginning to its end, with little memory however long it is. A RuntimeError where
/// the disk cannot be read.
[[nodiscard]] Inspection inspect(platform::InputFile& file);

/// Takes the source past one field of version V4; returns whether it holds a number that a sample can have.
[[nodiscard]] bool takeSampleField(ByteSource& source);

}  // namespace korvinel::tool
