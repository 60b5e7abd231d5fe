#include "platform/host_paths.h"

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>

namespace korvinel::platform {
namespace {

std::string driveFolder(const std::string& dataFolder) { return dataFolder + "/drive_c/"; }

bool isOnDriveC(std::string_view path) { return path.starts_with("C:\\") || path.starts_with("c:\\"); }

}  // namespace

std::string homeFolder() {
  if (const char* home = std::getenv("HOME"); home != nullptr && home[0] == '/') return home;
  const passwd* account = getpwuid(getuid());
  return account != nullptr && account->pw_dir != nullptr ? account->pw_dir : "/tmp";
}

std::string userDataFolder() {
  const char* folder = std::getenv("XDG_DATA_HOME");
  // A relative folder is to be ignored, as the base directory rules of the desktop say.
  const bool named = folder != nullptr && folder[0] == '/';
  return (named ? std::string(folder) : homeFolder() + "/.local/share") + "/korvinel";
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
  // A link that points to nothing counts too: its device is unplugged, and another one must not take its place.
  if (lstat(link.c_str(), &status) == 0) return link;
  return "/dev/ttyUSB" + std::to_string(portNumber - 1);
}

}  // namespace korvinel::platform
