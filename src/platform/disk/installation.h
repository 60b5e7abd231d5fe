#pragma once

#include <string>

#include "platform/files.h"

namespace korvinel::platform {

/// Creates the program's root C:\QUARVEL5 with its default files if it does not exist: the settings (port 1), 64
/// calibration factors of 1 and an empty DATAFILE. An existing root is left unchanged, even if something in it is
/// missing. `dataFolder`: holds the program's drive C; "" if that is the machine's own. A RuntimeError (output) if the
/// root cannot be created; then nothing is.
void installRootWhenAbsent(Files& files, const std::string& dataFolder);

/// The content of the default files: the settings, and 64 calibration factors of 1.
[[nodiscard]] std::string defaultSettings();
[[nodiscard]] std::string defaultFactors();

}  // namespace korvinel::platform
