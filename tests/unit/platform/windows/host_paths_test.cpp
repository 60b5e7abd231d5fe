#include "platform/host_paths.h"

#include <gtest/gtest.h>

namespace korvinel::platform {
namespace {

TEST(WindowsHostPaths, MapNothing) {
  EXPECT_EQ(userDataFolder(), "");
  EXPECT_EQ(hostPath("", "C:\\QUARVEL5\\Instal8s.val"), "C:\\QUARVEL5\\Instal8s.val");
  EXPECT_EQ(programPath("", "C:/QUARVEL5/DATAFILE/a.QVD"), "C:\\QUARVEL5\\DATAFILE\\a.QVD");
  EXPECT_EQ(serialDevice("", 12), "\\\\.\\COM12");
}

TEST(WindowsSettingsFolder, IsInTheRoamingApplicationData) {
  EXPECT_TRUE(userSettingsFolder().ends_with("\\Korvinel")) << userSettingsFolder();
}

}  // namespace
}  // namespace korvinel::platform
