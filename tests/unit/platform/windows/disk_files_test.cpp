#include "platform/windows/disk_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <random>

#include "unit/platform/disk_faults.h"

namespace korvinel::platform {
namespace {

using testing::ElementsAre;

struct WindowsDiskFiles : testing::Test {
  DiskFiles files;
  const std::string folder = "C:\\korvinel-test-" + std::to_string(std::random_device{}()) + "\\";

  void SetUp() override { std::filesystem::create_directories(folder + "inner"); }
  void TearDown() override { std::filesystem::remove_all(folder); }

  std::string read(const std::string& path) {
    const auto file = files.openForReading(path);
    std::string bytes;
    while (!file->atEnd()) bytes += static_cast<char>(file->take());
    return bytes;
  }
};

TEST_F(WindowsDiskFiles, AFileBeingWrittenHasNoSecondWriter) {
  const auto file = files.create(folder + "a");
  file->write("precious");
  EXPECT_EQ(faultOf([&] { static_cast<void>(files.create(folder + "a")); }).first, Fault::output);
  EXPECT_EQ(read(folder + "a"), "precious");
}

TEST_F(WindowsDiskFiles, NamesAreUnicode) {
  files.create(folder + "perch\xC3\xA9 \xE2\x82\xAC.QVD")->write("x");
  EXPECT_TRUE(files.exists(folder + "perch\xC3\xA9 \xE2\x82\xAC.QVD"));
  EXPECT_THAT(files.list(folder, ".qvd"), ElementsAre("perch\xC3\xA9 \xE2\x82\xAC.QVD"));
}

TEST_F(WindowsDiskFiles, WhatIsNoOrdinaryFileCannotBeReadOrWritten) {
  for (const std::string& path : {folder + "inner", folder + "COM5", folder + "NUL", std::string("\\\\.\\COM5")})
    expectNoOrdinaryFile(files, path);
}

TEST_F(WindowsDiskFiles, ADevicesNameIsTaken) {
  EXPECT_TRUE(files.exists(folder + "COM5"));
  EXPECT_FALSE(files.exists(folder + "COMMEDIA.QVD"));
}

TEST_F(WindowsDiskFiles, ANameOfADeviceIsNoNameOfAFile) {
  for (const char* name : {"NUL.QVD", "com1.QVD", "LPT9 .QVD", "aux", "CON.x.QVD"})
    EXPECT_EQ(files.nameFault(folder, name), NameFault::device) << name;
  for (const char* name : {"NULLO.QVD", "COM.QVD", "aNUL.QVD", " .QVD"})
    EXPECT_EQ(files.nameFault(folder, name), NameFault::none) << name;
}

TEST_F(WindowsDiskFiles, ANameWithLettersThatTheSystemForbidsOrDropsIsNone) {
  for (const char* name : {"", "a/b.QVD", "a\\b.QVD", "a:b.QVD", "a*.QVD", "a?.QVD", "a\t.QVD", "a.QVD ", "a.QVD."})
    EXPECT_EQ(files.nameFault(folder, name), NameFault::letters) << name;
}

TEST_F(WindowsDiskFiles, ANameWithItsFolderIsAtMost259Units) {
  const std::string longest(259 - folder.size(), 'a');
  EXPECT_EQ(files.nameFault(folder, longest), NameFault::none);
  EXPECT_EQ(files.nameFault(folder, longest + "a"), NameFault::tooLong);
  EXPECT_EQ(files.nameFault(folder, std::string(260, 'a')), NameFault::tooLong);
}

}  // namespace
}  // namespace korvinel::platform
