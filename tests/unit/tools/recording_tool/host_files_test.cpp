#include "recording_tool/host_files.h"

#include "tool_files.h"

namespace korvinel::tool {
namespace {

TEST(HostFiles, AreReadWholeUpToAsManyBytesAsMayBe) {
  const TemporaryFolder folder;
  const std::string bytes("a\0\xFF\x1A\r\n", 6);
  const std::string path = writeFile(folder / "a", bytes);
  EXPECT_EQ(readAll(path), bytes);
  EXPECT_EQ(readAll(path, 6), bytes);
  EXPECT_NE(errorOf([&] { (void)readAll(path, 5); }).find("more than 5 bytes"), std::string::npos);
}

TEST(HostFiles, WhatCannotBeReadIsNamedWithItsReason) {
  const TemporaryFolder folder;
  const std::string missing = errorOf([&] { (void)openInput(folder / "nothing"); });
  EXPECT_NE(missing.find(folder / "nothing"), std::string::npos) << missing;
  EXPECT_NE(missing.find("cannot be read"), std::string::npos) << missing;
  EXPECT_NE(errorOf([&] { (void)openInput(folder.path()); }).find("not an ordinary file"), std::string::npos);
}

TEST(HostFiles, OneFileHasManyNames) {
  const TemporaryFolder folder;
  const std::string path = writeFile(folder / "a", "x"), other = writeFile(folder / "b", "x");
  std::filesystem::create_directory(folder / "inner");
  EXPECT_EQ(absolutePath(folder / "inner/../a"), absolutePath(path));
  EXPECT_TRUE(isSameFile(path, folder / "inner/../a"));
  EXPECT_FALSE(isSameFile(path, other));
  EXPECT_FALSE(isSameFile(path, folder / "nothing"));
}

}  // namespace
}  // namespace korvinel::tool
