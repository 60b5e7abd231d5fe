#pragma once

#include <string>
#include <vector>

namespace korvinel::tool {

/// Makes the data file of a recording that a crash or a full disk interrupted, from its temporary file and its side
/// file: every whole block, the names and the notes, as the program would have assembled them. Takes little memory
/// however long the file is. Returns what there is to tell the user.
/// `notes`: the side file; if empty, the one beside the temporary file, which may be missing or damaged.
/// ToolError where `temporaryFile` is no temporary file or holds no whole block or is being recorded into, or
/// where `notes` cannot be read.
std::vector<std::string> recover(const std::string& temporaryFile, const std::string& notes, const std::string& output,
                                 bool force);

}  // namespace korvinel::tool
