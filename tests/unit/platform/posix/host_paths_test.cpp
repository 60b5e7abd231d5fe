#include "platform/host_paths.h"

#include <gtest/gtest.h>

#include "platform/posix/posix_machine.h"
#include "temporary_folder.h"
#include "unit/platform/posix/environment.h"

namespace korvinel::platform {
namespace {

TEST(ProgramsDataFolder, LiesInTheUsersDataFolder) {
  const Environment data("XDG_DATA_HOME", "/data");
  EXPECT_EQ(userDataFolder(), "/data/korvinel");
}

TEST(ProgramsDataFolder, IsTheConventionalOneWhereNoneIsNamed) {
  const TemporaryFolder rossi;
  const Environment home("HOME", rossi.path().c_str());
  EXPECT_EQ(homeFolder(), rossi.path());
  EXPECT_EQ(PosixMachine().homeFolder(), rossi / "");
  for (const char* unusable : {static_cast<const char*>(nullptr), "", "relative/folder"}) {
    const Environment data("XDG_DATA_HOME", unusable);
    EXPECT_EQ(userDataFolder(), rossi / ".local/share/korvinel");
  }
}

TEST(SettingsFolder, IsInTheUsersConfigurationFolder) {
  const TemporaryFolder rossi;
  const Environment home("HOME", rossi.path().c_str());
  const Environment named("XDG_CONFIG_HOME", "/settings");
  EXPECT_EQ(userSettingsFolder(), "/settings/korvinel");
  for (const char* unusable : {static_cast<const char*>(nullptr), "", "relative/folder"}) {
    const Environment unnamed("XDG_CONFIG_HOME", unusable);
    EXPECT_EQ(userSettingsFolder(), rossi / ".config/korvinel");
  }
}

TEST(HostPath, MapsDriveCAndLeavesOtherPathsAlone) {
  const std::pair<const char*, const char*> cases[] = {
      {"C:\\QUARVEL5\\Instal8s.val", "/data/drive_c/QUARVEL5/Instal8s.val"},
      {"c:\\QUARVEL5\\DATAFILE\\a.QVD", "/data/drive_c/QUARVEL5/DATAFILE/a.QVD"},
      {"/home/rossi/a.QVD", "/home/rossi/a.QVD"},
      {"/home/rossi/odd\\name.QVD", "/home/rossi/odd\\name.QVD"},
      {"D:\\a.QVD", "D:\\a.QVD"},
  };
  for (const auto& [path, expected] : cases) EXPECT_EQ(hostPath("/data", path), expected);
}

TEST(ProgramPath, IsTheWayBackForWhatLiesOnDriveC) {
  const std::pair<const char*, const char*> cases[] = {
      {"/data/drive_c/QUARVEL5/DATAFILE/a.QVD", "C:\\QUARVEL5\\DATAFILE\\a.QVD"},
      {"/data/drive_c/QUARVEL5/odd\\name.QVD", "/data/drive_c/QUARVEL5/odd\\name.QVD"},
      {"/data/drive_cc/a.QVD", "/data/drive_cc/a.QVD"},
      {"/home/rossi/a.QVD", "/home/rossi/a.QVD"},
  };
  for (const auto& [path, expected] : cases) EXPECT_EQ(programPath("/data", path), expected);
}

TEST(SerialDevice, IsTheLinkOfItsNumberWhereThereIsOne) {
  const TemporaryFolder folder;
  std::filesystem::create_directory(folder / "ports");
  std::filesystem::create_symlink("/dev/null", folder / "ports/COM2");
  EXPECT_EQ(serialDevice(folder.path(), 2), folder / "ports/COM2");
}

TEST(SerialDevice, StaysTheLinkWhileItsDeviceIsUnplugged) {
  const TemporaryFolder folder;
  std::filesystem::create_directory(folder / "ports");
  std::filesystem::create_symlink(folder / "gone", folder / "ports/COM1");
  EXPECT_EQ(serialDevice(folder.path(), 1), folder / "ports/COM1");
}

TEST(SerialDevice, IsAUsbAdapterWithoutALink) {
  const TemporaryFolder folder;
  EXPECT_EQ(serialDevice(folder.path(), 1), "/dev/ttyUSB0");
  EXPECT_EQ(serialDevice(folder.path(), 4), "/dev/ttyUSB3");
}

}  // namespace
}  // namespace korvinel::platform
