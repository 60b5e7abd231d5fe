#pragma once

#include <string>

namespace korvinel::platform {

/// Makes a folder, and those above it that are missing. In the user's home, or anywhere but in a folder that several
/// users share, they are for their owner alone; on Windows each has the rights of the one above. One that is there
/// stays as it is. A RuntimeError (output) where it cannot be made.
void makeFolders(const std::string& path);

}  // namespace korvinel::platform
