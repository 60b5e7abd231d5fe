#pragma once

#include <string>

#include "platform/files.h"

namespace korvinel::platform {

/// Locks the file of this path with LockFileEx, which ends with the process, whichever user's it is. Files::lock tells
/// the rest.
[[nodiscard]] LockAttempt lockFile(const std::string& path, const std::string& note);

}  // namespace korvinel::platform
