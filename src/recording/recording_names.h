#pragma once

#include <string>

namespace korvinel::platform {
struct Files;
}

namespace korvinel {

struct MainState;

/// While recording, the names in the boxes, already checked, are read-only.
void lockNames(MainState& state, bool locked);

/// The name itself if the folder has no file of that name, case ignored; else the first free one of "uno (2).QVD", "uno
/// (3).QVD", ..., shortened if it would be too long.
[[nodiscard]] std::string freeFileName(platform::Files& files, const std::string& folder, const std::string& name);

/// Before a data file is written: if a file of its name has appeared since recording began, gives the recording a free
/// name and adds that to `recordingNotice`.
void takeFreeName(MainState& state);

}  // namespace korvinel
