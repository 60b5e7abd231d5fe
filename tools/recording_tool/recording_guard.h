#pragma once

#include <memory>
#include <string>

#include "platform/files.h"

namespace korvinel::tool {

/// Prevents a recording from being started in the folder of this temporary file while the file is being read. A
/// ToolError if one is under way, as the file is then still being written. Null if the file is not where recordings are
/// made, if nobody has ever recorded there, or if that cannot be determined, which is reported.
[[nodiscard]] std::unique_ptr<platform::FileLock> holdAgainstRecording(const std::string& temporaryFile);

}  // namespace korvinel::tool
