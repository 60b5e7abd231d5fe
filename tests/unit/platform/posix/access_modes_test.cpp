#include "platform/posix/access_modes.h"

#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <sys/xattr.h>

#include <array>
#include <cerrno>
#include <optional>

#include "platform/disk/installation.h"
#include "platform/folders.h"
#include "platform/host_paths.h"
#include "platform/posix/disk_files.h"
#include "platform/posix/file_descriptor.h"
#include "temporary_folder.h"
#include "unit/platform/posix/another_process.h"
#include "unit/platform/posix/environment.h"
#include "values/runtime_error.h"

namespace korvinel::platform {
namespace {

mode_t modeOf(const std::string& path) {
  struct stat status {};
  return stat(path.c_str(), &status) == 0 ? status.st_mode & 07777 : 0;
}

/// A file mode mask, set for the lifetime of the object.
class Mask {
 public:
  explicit Mask(mode_t mask) : before_(umask(mask)) {}
  Mask(const Mask&) = delete;
  Mask& operator=(const Mask&) = delete;
  ~Mask() { umask(before_); }

 private:
  mode_t before_;
};

/// Lets owner and group read and write everything created in the folder, whatever the mask; false if the file system
/// has no access lists.
bool giveDefaultAccessList(const std::string& folder) {
  struct Entry {
    std::uint16_t who, rights;
    std::uint32_t id;
  };
  struct {
    std::uint32_t version = 2;
    std::array<Entry, 3> entries{{{1, 7, 0xffffffff}, {4, 7, 0xffffffff}, {0x20, 0, 0xffffffff}}};
  } list;
  static_assert(sizeof list == 28);
  return setxattr(folder.c_str(), "system.posix_acl_default", &list, sizeof list, 0) == 0;
}

TEST(NewFile, IsForItsOwnerAloneInAPrivateFolderAndElsewhereAsTheMaskSays) {
  struct Case {
    mode_t folder, mask, file;
  };
  const Case cases[] = {{0700, 0022, 0600}, {0700, 0002, 0600},  {0700, 0000, 0600}, {0755, 0022, 0644},
                        {0755, 0077, 0600}, {02770, 0002, 0664}, {0770, 0007, 0660}, {02770, 0027, 0640}};
  for (const Case& each : cases) {
    const TemporaryFolder folder;
    chmod(folder.path().c_str(), each.folder);
    const Mask mask(each.mask);
    DiskFiles files("");
    static_cast<void>(files.create(folder / "a"));
    static_cast<void>(files.openForAppending(folder / "b"));
    static_cast<void>(files.createNew(folder / "c"));
    for (const char* name : {"a", "b", "c"})
      EXPECT_EQ(modeOf(folder / name), each.file) << name << std::oct << " " << each.folder << " " << each.mask;
  }
}

TEST(NewFile, IsForItsOwnerAloneInAHomeUnlessItsFolderIsShared) {
  const TemporaryFolder home;
  const Environment variable("HOME", home.path().c_str());
  const Mask mask(0002);
  DiskFiles files("");
  const std::pair<mode_t, mode_t> cases[] = {{0755, 0600}, {0711, 0600}, {0700, 0600}, {0770, 0664}, {02750, 0664}};
  std::filesystem::create_directory(home / "esami");
  for (const auto& [folder, file] : cases)
    for (const std::string& place : {home.path(), home / "esami"}) {
      chmod(place.c_str(), folder);
      static_cast<void>(files.createNew(place + "/a"));
      EXPECT_EQ(modeOf(place + "/a"), file) << std::oct << folder << " " << place;
      files.remove(place + "/a");
    }
}

TEST(FileOfItsOwnerAlone, GetsTheRightsOfANewOneWhereTheFolderAdmitsOthers) {
  const std::pair<mode_t, mode_t> cases[] = {{0700, 0600}, {02770, 0640}, {0755, 0640}};
  for (const auto& [above, mode] : cases) {
    const TemporaryFolder folder;
    chmod(folder.path().c_str(), above);
    const Mask mask(0027);
    writeFile(folder / "a", "");
    chmod((folder / "a").c_str(), 0600);
    admitWhomTheFolderAdmits(folder / "a");
    EXPECT_EQ(modeOf(folder / "a"), mode) << std::oct << above;
  }
}

TEST(NewFile, HasTheGroupOfAFolderThatHandsItsOwnDown) {
  if (getuid() != 0) GTEST_SKIP() << "only root can give a folder any group";
  const TemporaryFolder folder;
  constexpr gid_t practice = 54321;
  ASSERT_EQ(chown(folder.path().c_str(), 0, practice), 0);
  chmod(folder.path().c_str(), 02770);
  DiskFiles files("");
  static_cast<void>(files.create(folder / "a"));
  struct stat status {};
  ASSERT_EQ(stat((folder / "a").c_str(), &status), 0);
  EXPECT_EQ(status.st_gid, practice);
}

TEST(NewFile, FollowsTheAccessListOfItsFolder) {
  const TemporaryFolder folder;
  chmod(folder.path().c_str(), 0770);
  if (!giveDefaultAccessList(folder.path())) GTEST_SKIP() << "no access lists here";
  const Mask mask(0077);
  DiskFiles files("");
  static_cast<void>(files.create(folder / "a"));
  EXPECT_EQ(modeOf(folder / "a"), 0660U);
}

TEST(FileThatIsThere, KeepsItsModeWhateverIsWrittenToIt) {
  const TemporaryFolder folder;
  chmod(folder.path().c_str(), 0700);
  DiskFiles files("");
  writeFile(folder / "a", "");
  for (const mode_t mode : {0644, 0660, 0600}) {
    chmod((folder / "a").c_str(), mode);
    files.create(folder / "a")->write("x");
    files.openForAppending(folder / "a")->write("y");
    EXPECT_EQ(modeOf(folder / "a"), mode);
  }
}

TEST(NewFile, TakesNoPlaceOfALinkWhereItMustBeNew) {
  const TemporaryFolder folder;
  writeFile(folder / "precious", "content");
  std::filesystem::create_symlink(folder / "precious", folder / "link");
  std::filesystem::create_symlink(folder / "nowhere", folder / "dangling");
  DiskFiles files("");
  for (const char* name : {"link", "dangling"})
    EXPECT_THROW(static_cast<void>(files.createNew(folder / name)), RuntimeError) << name;
  EXPECT_EQ(contentOf(folder / "precious"), "content");
  EXPECT_FALSE(std::filesystem::exists(folder / "nowhere"));
}

TEST(NewFolder, IsForItsOwnerAloneInAHomeWhateverTheMask) {
  const TemporaryFolder home;
  chmod(home.path().c_str(), 02775);
  const Environment variable("HOME", home.path().c_str());
  const Mask mask(0002);
  makeFolders(home / ".local/share/korvinel");
  for (const char* name : {".local", ".local/share", ".local/share/korvinel"})
    EXPECT_EQ(modeOf(home / name) & 0777, 0700U) << name;
}

TEST(NewFolder, IsSharedOnlyWhereTheOneAboveIs) {
  const Mask mask(0002);
  const std::pair<mode_t, mode_t> cases[] = {{0755, 0700}, {0700, 0700}, {01777, 0700}, {0770, 0775}, {02750, 02775}};
  for (const auto& [above, made] : cases) {
    const TemporaryFolder folder;
    chmod(folder.path().c_str(), above);
    makeFolders(folder / "a/b");
    EXPECT_EQ(modeOf(folder / "a"), made) << std::oct << above;
    EXPECT_EQ(modeOf(folder / "a/b"), made) << std::oct << above;
  }
}

TEST(NewFolder, FollowsTheAccessListOfTheOneAbove) {
  const TemporaryFolder folder;
  if (!giveDefaultAccessList(folder.path())) GTEST_SKIP() << "no access lists here";
  const Mask mask(0077);
  makeFolders(folder / "a/b");
  EXPECT_EQ(modeOf(folder / "a/b"), 0770U);
}

TEST(NewFolder, OneThatIsThereStaysAsItIs) {
  const TemporaryFolder folder;
  std::filesystem::create_directory(folder / "a");
  chmod((folder / "a").c_str(), 0751);
  makeFolders(folder / "a");
  makeFolders(folder / "a/b");
  EXPECT_EQ(modeOf(folder / "a"), 0751U);
}

TEST(NewFolder, SaysWhyItCannotBeMade) {
  const TemporaryFolder folder;
  writeFile(folder / "file", "in the way");
  try {
    makeFolders(folder / "file/a");
    FAIL() << "no fault";
  } catch (const RuntimeError& fault) {
    EXPECT_EQ(fault.facts().cause, Cause::folderNotMade);
    EXPECT_EQ(fault.facts().path, folder / "file");
    EXPECT_EQ(fault.facts().systemReason, systemMessage(EEXIST));
  }
}

TEST(ProgramsRoot, IsWhollyForItsOwnerInAHome) {
  const TemporaryFolder home;
  const Environment variable("HOME", home.path().c_str());
  const Mask mask(0022);
  const std::string data = home / ".local/share/korvinel";
  DiskFiles files(data);
  installRootWhenAbsent(files, data);
  for (const auto& entry : std::filesystem::recursive_directory_iterator(home.path()))
    EXPECT_EQ(modeOf(entry.path()), entry.is_directory() ? 0700U : 0600U) << entry.path();
}

TEST(ProgramsDataFolder, IsRefusedToAUserWithoutAHome) {
  if (getuid() != 0) GTEST_SKIP() << "only root can be a user without an account";
  const Environment data("XDG_DATA_HOME", nullptr);
  for (const char* noFolder : {static_cast<const char*>(nullptr), "", "relative", "/nonexistent/home", "/dev/null"}) {
    const Environment home("HOME", noFolder);
    constexpr uid_t withoutAccount = 54321;
    const auto refused = [] {
      try {
        static_cast<void>(userDataFolder());
        return 1;
      } catch (const RuntimeError&) {
        return 0;
      }
    };
    EXPECT_EQ(inAnotherProcess(refused, withoutAccount), 0);
  }
}

}  // namespace
}  // namespace korvinel::platform
