#pragma once

#include <string>

#include "platform/files.h"

namespace korvinel::platform {

/// Locks the file of this path, any user's, with LockFileEx, which ends with the process. See Files::lock.
[[nodiscard]] LockAttempt lockFile(const std::string& path, const std::string& note);

}  // namespace korvinel::platform
