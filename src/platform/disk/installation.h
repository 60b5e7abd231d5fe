#pragma once

#include <string>

#include "platform/files.h"

namespace korvinel::platform {

/// Puts the program's root C:\QUARVEL5 with its default files on the disk where it is wholly absent: the settings (port
/// 1), 64 calibration factors of 1 and an empty DATAFILE. A root that is there is left as it is, even where something
/// is missing in it. `dataFolder`: where the program's drive C lies, "" where it is the machine's own. A RuntimeError
/// (output) where the root cannot be put there; then nothing is.
void installRootWhenAbsent(Files& files, const std::string& dataFolder);

/// The content of the default files: the settings, and 64 calibration factors of 1.
[[nodiscard]] std::string defaultSettings();
[[nodiscard]] std::string defaultFactors();

}  // namespace korvinel::platform
