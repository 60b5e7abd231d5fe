#pragma once

#include <string>

#include "platform/files.h"

namespace korvinel::platform {

/// Locks the file of this path on the disk with flock, which ends with the process. Where several users may write in
/// the folder everybody may write the note, whoever made the file. Files::lock tells the rest.
[[nodiscard]] LockAttempt lockFile(const std::string& path, const std::string& note);

}  // namespace korvinel::platform
