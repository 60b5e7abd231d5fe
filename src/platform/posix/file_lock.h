#pragma once

#include <string>

#include "platform/files.h"

namespace korvinel::platform {

/// Locks the file of this path on the disk with flock, which ends with the process. If several users may write in the
/// folder, all of them may write the note, whoever created the file. See Files::lock.
[[nodiscard]] LockAttempt lockFile(const std::string& path, const std::string& note);

}  // namespace korvinel::platform
