#pragma once

#include <string>

#include "frame/main_state.h"

namespace korvinel {

/// While recording, the boxes of the names show what was checked and cannot be edited.
void lockNames(MainState& state, bool locked);

/// The name itself where no file of that name lies in the folder, upper and lower case alike; else the first free one
/// of "uno (2).QVD", "uno (3).QVD", ..., shortened where it would be too long.
[[nodiscard]] std::string freeFileName(platform::Files& files, const std::string& folder, const std::string& name);

/// Before a data file is written: gives the recording a free name where a file of its own has appeared since it began,
/// and adds that to `recordingNotice`.
void takeFreeName(MainState& state);

}  // namespace korvinel
