#pragma once

#include <sys/types.h>

#include <string>

/// Access modes of the program's files and folders: a recording names a patient.
namespace korvinel::platform {

/// The folder part of a path, with its slash; "." if there is none.
[[nodiscard]] std::string folderOf(const std::string& path);

/// The mode for creating a file: 0600 in a folder that only its owner may enter and in a folder of the home that is not
/// shared, else 0666, which the system reduces by the user's mask or the folder's access list.
[[nodiscard]] mode_t modeOfNewFile(const std::string& path);

}  // namespace korvinel::platform
