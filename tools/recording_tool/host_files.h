#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/files.h"

namespace korvinel::tool {

/// Opens one of the user's files for reading; ToolError with the system's reason if that fails.
[[nodiscard]] std::unique_ptr<platform::InputFile> openInput(const std::string& path);

/// All bytes of a file of at most `most` bytes; ToolError if it is longer or cannot be read.
[[nodiscard]] std::string readAll(const std::string& path, std::int64_t most = 1'000'000'000);

/// The path without "." and "..", from the root of the file system.
[[nodiscard]] std::string absolutePath(const std::string& path);

/// Whether both names refer to one existing file.
[[nodiscard]] bool isSameFile(const std::string& first, const std::string& second);

}  // namespace korvinel::tool
