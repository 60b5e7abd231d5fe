#pragma once

#include <string>

namespace korvinel::tool {

/// Makes the data file of a recording that a crash interrupted, from its temporary file: every whole block is kept.
/// Returns what there is to tell the user: the number of blocks, and of bytes behind them. ToolError where nothing can
/// be recovered.
std::string recover(const std::string& temporaryFile, const std::string& output, bool force);

/// The bytes of that data file, by the program's own assembling. `path` is named in errors.
struct Recovered {
  std::string dataFile;
  int blocks = 0;
  int bytesLeft = 0;  ///< behind the last whole block
};
[[nodiscard]] Recovered recoveredFrom(const std::string& path, const std::string& temporaryBytes);

}  // namespace korvinel::tool
