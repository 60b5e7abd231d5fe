#pragma once

#include <string>
#include <string_view>

/// Where the program's own paths and ports are on this machine; each system has its own `host_paths.cpp`.
namespace korvinel::platform {

/// The user's home folder, without a trailing separator: $HOME, else that of the account; on Windows %USERPROFILE%. ""
/// if that does not exist.
[[nodiscard]] std::string homeFolder();

/// Where the program's own data lives: `korvinel` in the user's data folder ($XDG_DATA_HOME, else ~/.local/share).
/// Holds `drive_c`, the program's drive C, and `ports`, the links to the serial devices. "" on Windows, which has both
/// already. A RuntimeError (output) if the user has no home.
[[nodiscard]] std::string userDataFolder();

/// Where the program's settings of this user are kept: `korvinel` in $XDG_CONFIG_HOME, else in ~/.config; on Windows
/// `Korvinel` in %APPDATA%. "" if the user has no home. It need not exist.
[[nodiscard]] std::string userSettingsFolder();

/// The host's path for a path in the program's notation: "C:\QUARVEL5\X" is in `drive_c` of the data folder. Any other
/// path is the host's own and is returned unchanged; on Windows every path is.
[[nodiscard]] std::string hostPath(const std::string& dataFolder, std::string_view path);

/// The reverse: a host path inside `drive_c` in the program's notation; any other, or one with a backslash in a name,
/// is returned unchanged. On Windows a slash becomes a backslash.
[[nodiscard]] std::string programPath(const std::string& dataFolder, const std::string& hostPath);

/// The device of serial port 1, 2, ...: the target of the link `ports/COMn`, or without the link the n-th USB serial
/// adapter. Never a built-in port without a link: it may be the machine's console. On Windows the port COMn.
[[nodiscard]] std::string serialDevice(const std::string& dataFolder, int portNumber);

}  // namespace korvinel::platform
