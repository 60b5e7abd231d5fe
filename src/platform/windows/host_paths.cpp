#include "platform/host_paths.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>

#include "platform/windows/wide_text.h"

namespace korvinel::platform {

std::string homeFolder() {
  const wchar_t* home = _wgetenv(L"USERPROFILE");
  std::error_code ignored;
  return home != nullptr && std::filesystem::is_directory(home, ignored) ? utf8FromWide(home) : "";
}

std::string userDataFolder() { return ""; }

std::string userSettingsFolder() {
  const wchar_t* folder = _wgetenv(L"APPDATA");
  return folder != nullptr && folder[0] != 0 ? utf8FromWide(folder) + "\\Korvinel" : "";
}

std::string hostPath(const std::string&, std::string_view path) { return std::string(path); }

std::string programPath(const std::string&, const std::string& hostPath) {
  std::string path = hostPath;
  std::replace(path.begin(), path.end(), '/', '\\');
  return path;
}

/// In the form that reaches COM10 and above too.
std::string serialDevice(const std::string&, int portNumber) { return "\\\\.\\COM" + std::to_string(portNumber); }

}  // namespace korvinel::platform
