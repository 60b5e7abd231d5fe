#pragma once

#include <string>

namespace korvinel::platform {

/// Puts the program's root C:\QUARVEL5 with its default files into the data folder where it is wholly absent: the
/// settings (port 1), 64 calibration factors of 1 and an empty DATAFILE. A root that is there is left as it is, even
/// where something is missing in it. A RuntimeError (output) where it cannot be put there; then nothing is.
void installRootWhenAbsent(const std::string& dataFolder);

/// The content of the default files: the settings, and 64 calibration factors of 1.
[[nodiscard]] std::string defaultSettings();
[[nodiscard]] std::string defaultFactors();

}  // namespace korvinel::platform
