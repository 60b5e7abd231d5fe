#pragma once

#include <memory>
#include <string>

#include "platform/files.h"

namespace korvinel::tool {

/// Keeps a recording from being begun into the folder of this temporary file while it is being read. A ToolError where
/// one is under way: the file is then still being written. Null where the file is no recording's of that folder, where
/// nobody has ever recorded there, or where that cannot be found out, which is told.
[[nodiscard]] std::unique_ptr<platform::FileLock> holdAgainstRecording(const std::string& temporaryFile);

}  // namespace korvinel::tool
