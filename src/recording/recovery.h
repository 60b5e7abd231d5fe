#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "recording/file_header.h"

namespace korvinel::platform {
struct Files;
}

namespace korvinel {

class TemporaryReader;
struct SideFile;

/// The steps that make a data file of what an interrupted recording has left, as the program would have assembled it.

/// The side file of a temporary file: the one beside it or, if a crash has separated the two while they were being set
/// aside, the only one without a temporary file that belongs to it. "" = none.
[[nodiscard]] std::string sideFileOf(platform::Files& files, const std::string& temporaryFile,
                                     const TemporaryReader& temporary);

/// Whether both have the same person and day: nobody's notes may be given to somebody else.
[[nodiscard]] bool belongsTogether(const SideFile& side, const std::string& subject, const std::string& date);

/// Takes the notes, and the names if it holds them, from a side file that belongs to the recording.
void takeFromSideFile(FileHeader& header, const SideFile& side);

/// The bytes of the data file before its blocks: the header line and the notes, or the placeholder of a recording
/// without notes.
[[nodiscard]] std::string headBytes(const FileHeader& header);

/// What copyBlocks has found.
struct CopiedBlocks {
  std::int64_t blocks = 0;  ///< written
  int damaged = 0;          ///< among them, kept as found
  std::int64_t end = 0;     ///< the byte after the last one written
  std::int64_t left = 0;    ///< bytes read after it and left out
};

/// Writes every complete block. Damaged ones followed by an intact one keep their place; a tail without an intact block
/// is left out: it was never a recording, or never reached the disk. Uses little memory however long the file is.
CopiedBlocks copyBlocks(TemporaryReader& temporary, const std::function<void(std::string_view)>& write);

}  // namespace korvinel
