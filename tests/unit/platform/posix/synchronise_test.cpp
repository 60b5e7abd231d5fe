#include <gtest/gtest.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>

#include "platform/posix/disk_files.h"
#include "temporary_folder.h"

namespace {

/// The files and folders that were forced onto the disk, by the names that they have on it.
std::vector<std::string>& forced() {
  static std::vector<std::string> paths;
  return paths;
}

}  // namespace

/// In the place of the system's: notes what is forced, and does it.
extern "C" int fsync(int descriptor) {
  std::error_code ignored;
  forced().push_back(std::filesystem::read_symlink("/proc/self/fd/" + std::to_string(descriptor), ignored));
  return static_cast<int>(syscall(SYS_fsync, descriptor));
}

namespace korvinel::platform {
namespace {

/// Without its folder a new file's name may be lost with the power, and a removal or a renaming undone.
TEST(DiskFilesSynchronise, ForcesTheFileAndThenItsFolderOntoTheDisk) {
  const TemporaryFolder folder;
  DiskFiles files(folder.path());
  const std::string data = folder / "drive_c/QUARVEL5/DATAFILE";
  std::filesystem::create_directories(data);
  const auto file = files.openForAppending("C:\\QUARVEL5\\DATAFILE\\prova.QVD");
  file->write("abc");
  forced().clear();
  file->synchronise();
  EXPECT_EQ(forced(), (std::vector<std::string>{data + "/prova.QVD", data}));
}

}  // namespace
}  // namespace korvinel::platform
