#pragma once

#include <string>

#include "platform/files.h"

namespace korvinel::platform {

/// As Files::nameFault, for a folder by its path on the disk. The limit is that of the folder's file system, at most
/// 255 bytes and 255 UTF-16 units: some file systems report more than they allow.
[[nodiscard]] NameFault nameFaultIn(const std::string& folder, const std::string& name);

}  // namespace korvinel::platform
