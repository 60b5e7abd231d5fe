#include "platform/disk/installation.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "frame/configuration.h"
#include "frame/fault_text.h"
#include "platform/posix/disk_files.h"
#include "temporary_folder.h"
#include "values/runtime_error.h"

namespace korvinel::platform {
namespace {

std::vector<std::string> namesIn(const std::string& folder) {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) names.push_back(entry.path().filename());
  return names;
}

std::string bytesOf(InputFile& file) {
  std::string bytes;
  while (!file.atEnd()) bytes += static_cast<char>(file.take());
  return bytes;
}

TEST(Installation, PutsARootThatStartUpCanRead) {
  const TemporaryFolder folder;
  const std::string data = folder / "share/korvinel";
  DiskFiles files(data);
  installRootWhenAbsent(files, data);
  EXPECT_EQ(readSettings(*files.openForReading("C:\\QUARVEL5\\Instal8s.val")), 1);
  Bounded<float, 130> factors;
  readCalibration(*files.openForReading("C:\\QUARVEL5\\Factors.val"), factors);
  for (int i = 1; i <= 128; ++i) EXPECT_EQ(factors[i], 1.0F);
  EXPECT_TRUE(std::filesystem::is_directory(data + "/drive_c/QUARVEL5/DATAFILE"));
  EXPECT_THAT(namesIn(data + "/drive_c"), testing::ElementsAre("QUARVEL5"));
}

TEST(Installation, PutsTheFilesThatTheInstallerForWindowsPuts) {
  const TemporaryFolder folder;
  DiskFiles files(folder.path());
  installRootWhenAbsent(files, folder.path());
  DiskFiles host(folder.path());  // any path but drive C is the host's own
  const std::string defaults = KORVINEL_SOURCE_DIR "/packaging/windows/installer/defaults/";
  for (const std::string name : {"Instal8s.val", "Factors.val"})
    EXPECT_EQ(bytesOf(*files.openForReading("C:\\QUARVEL5\\" + name)), bytesOf(*host.openForReading(defaults + name)));
}

TEST(Installation, LeavesARootThatIsThereAsItIs) {
  const TemporaryFolder folder;
  DiskFiles files(folder.path());
  std::filesystem::create_directories(folder / "drive_c/QUARVEL5");
  installRootWhenAbsent(files, folder.path());
  EXPECT_THAT(namesIn(folder / "drive_c/QUARVEL5"), testing::IsEmpty());
}

TEST(Installation, SaysWhereTheRootCannotBePut) {
  const TemporaryFolder folder;
  DiskFiles files(folder.path());
  writeFile(folder / "drive_c", "a file in the way");
  try {
    installRootWhenAbsent(files, folder.path());
    FAIL() << "no fault";
  } catch (const RuntimeError& fault) {
    EXPECT_EQ(fault.fault, Fault::output);
    EXPECT_THAT(faultText(fault),
                testing::StartsWith("Impossibile creare la cartella " + (folder / "drive_c/QUARVEL5") + ":\r"));
  }
}

}  // namespace
}  // namespace korvinel::platform
