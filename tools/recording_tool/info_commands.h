#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace korvinel::tool {

/// `info`: header, notes, version, blocks, duration and damage of each file, as text or as one JSON array. Returns the
/// exit code: `failed` if a file cannot be read.
int showInfo(const std::vector<std::string>& files, bool json, std::ostream& out);

/// `check`: one line for each defect, "FILE: what is wrong, at byte N". `failed` if there is one.
int checkFiles(const std::vector<std::string>& files, std::ostream& out);

}  // namespace korvinel::tool
