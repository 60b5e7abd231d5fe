#pragma once

#include <string>
#include <vector>

namespace korvinel::tool {

/// Makes the data file of a recording that a crash or a full disk interrupted, from its temporary file and its side
/// file: every complete block, the names and the notes, as the program would have assembled them. Uses little memory
/// however long the file is. Returns what to report to the user.
/// `notes`: the side file; if empty, the one beside the temporary file, which may be missing or damaged. ToolError if
/// `temporaryFile` is not a temporary file, holds no complete block or is still being written, or if `notes` cannot be
/// read.
std::vector<std::string> recover(const std::string& temporaryFile, const std::string& notes, const std::string& output,
                                 bool force);

}  // namespace korvinel::tool
