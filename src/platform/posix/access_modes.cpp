#include "platform/posix/access_modes.h"

#include <sys/stat.h>
#include <sys/xattr.h>

#include <cerrno>

#include "platform/folders.h"
#include "platform/host_paths.h"
#include "platform/posix/file_descriptor.h"
#include "values/runtime_error.h"

namespace korvinel::platform {
namespace {

constexpr mode_t ownerOnly = 0700;
constexpr mode_t asTheMaskSays = 0777;

bool isFolder(const std::string& path) {
  struct stat status {};
  return stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

bool isInHome(const std::string& path) {
  const std::string home = homeFolder();
  return !home.empty() && path.starts_with(home + "/");
}

/// Whether a folder has an access list for the files created in it; the mask has no effect on them then.
bool hasAccessList(const std::string& folder) {
  return getxattr(folder.c_str(), "system.posix_acl_default", nullptr, 0) > 0;
}

/// Whether several users are meant to create files in a folder. A folder like /tmp, in which nobody may change others'
/// files, is not one.
bool isShared(const std::string& folder) {
  struct stat status {};
  if (stat(folder.c_str(), &status) != 0) return false;
  const bool othersWrite = (status.st_mode & (S_IWGRP | S_IWOTH)) != 0 && (status.st_mode & S_ISVTX) == 0;
  return othersWrite || (status.st_mode & S_ISGID) != 0 || hasAccessList(folder);
}

/// A home is private, even on systems that let everybody enter it.
bool isPrivate(const std::string& folder) {
  struct stat status {};
  const bool isClosed = stat(folder.c_str(), &status) == 0 && (status.st_mode & (S_IRWXG | S_IRWXO)) == 0;
  return isClosed || (isInHome(folder) && !isShared(folder));
}

mode_t maskOfProcess() {
  const mode_t mask = umask(0077);
  umask(mask);
  return mask;
}

mode_t modeOfNewFolder(const std::string& path) {
  return !isInHome(path) && isShared(folderOf(path)) ? asTheMaskSays : ownerOnly;
}

}  // namespace

std::string folderOf(const std::string& path) {
  const std::size_t slash = path.find_last_of('/');
  return slash == std::string::npos ? "." : path.substr(0, slash + 1);
}

mode_t modeOfNewFile(const std::string& path) { return isPrivate(folderOf(path)) ? 0600 : 0666; }

void admitWhomTheFolderAdmits(const std::string& path) {
  const std::string folder = folderOf(path);
  if (isPrivate(folder)) return;
  const mode_t mode = hasAccessList(folder) ? 0660 : 0666 & ~maskOfProcess();
  static_cast<void>(chmod(path.c_str(), mode) == 0);
}

void makeFolders(const std::string& path) {
  if (isFolder(path)) return;
  const std::size_t slash = path.find_last_of('/');
  if (slash != std::string::npos && slash > 0) makeFolders(path.substr(0, slash));
  const bool made = mkdir(path.c_str(), modeOfNewFolder(path)) == 0 || (errno == EEXIST && isFolder(path));
  if (!made)
    throw RuntimeError(Facts{.cause = Cause::folderNotMade, .path = path, .systemReason = systemMessage(errno)});
}

}  // namespace korvinel::platform
