#pragma once

#include <sys/types.h>

#include <string>

/// Who may read what the program makes: a recording tells of a patient.
namespace korvinel::platform {

/// The folder that a path lies in, with its slash; "." where it names none.
[[nodiscard]] std::string folderOf(const std::string& path);

/// The mode to ask for in making a file: 0600 in a folder that only its owner may enter, else 0666, of which the system
/// takes what the user's mask or the folder's access list withholds.
[[nodiscard]] mode_t modeOfNewFile(const std::string& path);

}  // namespace korvinel::platform
