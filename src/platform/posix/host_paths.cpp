#include "platform/host_paths.h"

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>

#include "values/runtime_error.h"

namespace korvinel::platform {
namespace {

std::string driveFolder(const std::string& dataFolder) { return dataFolder + "/drive_c/"; }

bool isOnDriveC(std::string_view path) { return path.starts_with("C:\\") || path.starts_with("c:\\"); }

bool isFolder(const std::string& path) {
  struct stat status {};
  return stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

}  // namespace

std::string homeFolder() {
  if (const char* home = std::getenv("HOME"); home != nullptr && home[0] == '/' && isFolder(home)) return home;
  const passwd* account = getpwuid(getuid());
  const bool named = account != nullptr && account->pw_dir != nullptr && account->pw_dir[0] == '/';
  return named && isFolder(account->pw_dir) ? account->pw_dir : "";
}

std::string userDataFolder() {
  const char* folder = std::getenv("XDG_DATA_HOME");
  // A relative folder is ignored, as the desktop's base directory rules require.
  if (folder != nullptr && folder[0] == '/') return std::string(folder) + "/korvinel";
  const std::string home = homeFolder();
  // Recordings must not go into a folder that everybody may enter and that is emptied at times.
  if (home.empty()) throw RuntimeError(Cause::noHome);
  return home + "/.local/share/korvinel";
}

std::string userSettingsFolder() {
  const char* folder = std::getenv("XDG_CONFIG_HOME");
  if (folder != nullptr && folder[0] == '/') return std::string(folder) + "/korvinel";
  const std::string home = homeFolder();
  return home.empty() ? "" : home + "/.config/korvinel";
}

std::string hostPath(const std::string& dataFolder, std::string_view path) {
  if (!isOnDriveC(path)) return std::string(path);
  std::string inside(path.substr(3));
  std::replace(inside.begin(), inside.end(), '\\', '/');
  return driveFolder(dataFolder) + inside;
}

std::string programPath(const std::string& dataFolder, const std::string& hostPath) {
  const std::string drive = driveFolder(dataFolder);
  if (!hostPath.starts_with(drive)) return hostPath;
  std::string inside = hostPath.substr(drive.size());
  if (inside.find('\\') != std::string::npos) return hostPath;
  std::replace(inside.begin(), inside.end(), '/', '\\');
  return "C:\\" + inside;
}

std::string serialDevice(const std::string& dataFolder, int portNumber) {
  std::string link = dataFolder + "/ports/COM" + std::to_string(portNumber);
  struct stat status {};
  // A dangling link counts too: its device is unplugged, and another one must not replace it.
  if (lstat(link.c_str(), &status) == 0) return link;
  return "/dev/ttyUSB" + std::to_string(portNumber - 1);
}

}  // namespace korvinel::platform
