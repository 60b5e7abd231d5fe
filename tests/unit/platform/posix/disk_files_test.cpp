#include "platform/posix/disk_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "temporary_folder.h"
#include "unit/platform/disk_faults.h"

namespace korvinel::platform {
namespace {

using testing::HasSubstr;

struct DiskFilesInAFolder : testing::Test {
  TemporaryFolder folder;
  DiskFiles files{folder.path()};
  const std::string root = "C:\\QUARVEL5\\";

  std::string onDisk(const std::string& name) const { return folder / ("drive_c/QUARVEL5/" + name); }
  void SetUp() override { std::filesystem::create_directories(onDisk("DATAFILE")); }

  std::string read(const std::string& path) {
    const auto file = files.openForReading(path);
    std::string bytes;
    while (!file->atEnd()) bytes += static_cast<char>(file->take());
    return bytes;
  }
};

TEST_F(DiskFilesInAFolder, AWriteIsOnTheDiskBeforeTheFileIsClosed) {
  const auto file = files.create(root + "a");
  file->write("block 1");
  EXPECT_EQ(contentOf(onDisk("a")), "block 1");
  file->synchronise();
  file->write(", block 2");
  EXPECT_EQ(contentOf(onDisk("a")), "block 1, block 2");
}

TEST_F(DiskFilesInAFolder, HostPathsAreUsedAsTheyAre) {
  files.create(folder / "host.QVD")->write("x");
  EXPECT_EQ(contentOf(folder / "host.QVD"), "x");
  EXPECT_EQ(read(folder / "host.QVD"), "x");
}

TEST_F(DiskFilesInAFolder, WhatIsNoOrdinaryFileCannotBeReadOrWritten) {
  ASSERT_EQ(mkfifo(onDisk("pipe").c_str(), 0600), 0);
  for (const std::string& path : {root + "DATAFILE", root + "pipe", std::string("/dev/null")})
    expectNoOrdinaryFile(files, path);
}

TEST_F(DiskFilesInAFolder, AMessageNamesTheFileWhereItLiesAndTheReason) {
  const auto [fault, message] = faultOf([&] { static_cast<void>(files.openForReading(root + "missing.val")); });
  EXPECT_EQ(fault, Fault::input);
  EXPECT_THAT(message, HasSubstr("C:\\QUARVEL5\\missing.val"));
  EXPECT_THAT(message, HasSubstr(onDisk("missing.val")));
  EXPECT_THAT(message, HasSubstr("No such file"));
}

TEST_F(DiskFilesInAFolder, ANameIsAsLongAsTheFileSystemTakes) {
  const std::string data = root + "DATAFILE\\";
  for (const std::string& letter : {std::string("a"), std::string("\u00E8"), std::string("\u20AC")}) {
    std::string name;
    while (files.nameFault(data, name + letter + ".QVD") == NameFault::none) name += letter;
    EXPECT_EQ(faultOf([&] { static_cast<void>(files.create(data + name + ".QVD")); }).second, "no fault")
        << name.size();
    EXPECT_EQ(files.nameFault(data, name + letter + ".QVD"), NameFault::tooLong);
    EXPECT_EQ(faultOf([&] { static_cast<void>(files.create(data + name + letter + ".QVD")); }).first, Fault::output)
        << name.size();
    EXPECT_GT(name.size(), 240U);
  }
}

TEST_F(DiskFilesInAFolder, ANameThatWouldLieInAnotherFolderIsNone) {
  for (const char* name : {"a/b.QVD", "a\\b.QVD", "", ".", ".."})
    EXPECT_EQ(files.nameFault(root + "DATAFILE\\", name), NameFault::letters) << name;
  for (const char* name : {"NUL.QVD", "COM1.QVD", "a:b.QVD", " a .QVD", "...QVD"})
    EXPECT_EQ(files.nameFault(root + "DATAFILE\\", name), NameFault::none) << name;
  EXPECT_EQ(files.nameFault(root + "NOWHERE\\", std::string(300, 'a')), NameFault::tooLong);
}

}  // namespace
}  // namespace korvinel::platform
