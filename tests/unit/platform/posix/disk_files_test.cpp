#include "platform/posix/disk_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>
#include <functional>

#include "temporary_folder.h"
#include "values/runtime_error.h"

namespace korvinel::platform {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

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

/// The kind of fault that the action ends in, with its message.
std::pair<Fault, std::string> faultOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const RuntimeError& fault) {
    return {fault.fault, fault.what()};
  }
  return {Fault::overflow, "no fault"};
}

TEST_F(DiskFilesInAFolder, GivesBackEveryByteThatWasWritten) {
  std::string bytes;
  for (int i = 0; i < 100'000; ++i) bytes += static_cast<char>(i * 7 % 256);
  files.create(root + "a.QVD")->write(bytes);
  EXPECT_EQ(contentOf(onDisk("a.QVD")), bytes);
  EXPECT_EQ(read(root + "a.QVD"), bytes);
}

TEST_F(DiskFilesInAFolder, ReadingCountsTheBytesTaken) {
  writeFile(onDisk("a"), "abc");
  const auto file = files.openForReading(root + "a");
  EXPECT_EQ(file->position(), 0);
  EXPECT_EQ(file->peek(), 'a');
  EXPECT_EQ(file->position(), 0);
  EXPECT_EQ(file->take(), 'a');
  EXPECT_EQ(file->position(), 1);
  file->take();
  file->take();
  EXPECT_TRUE(file->atEnd());
  EXPECT_EQ(file->take(), ByteSource::end);
  EXPECT_EQ(file->position(), 3);
}

TEST_F(DiskFilesInAFolder, AWriteIsOnTheDiskBeforeTheFileIsClosed) {
  const auto file = files.create(root + "a");
  file->write("block 1");
  EXPECT_EQ(contentOf(onDisk("a")), "block 1");
  file->synchronise();
  file->write(", block 2");
  EXPECT_EQ(contentOf(onDisk("a")), "block 1, block 2");
}

TEST_F(DiskFilesInAFolder, CreateEmptiesAndAppendKeeps) {
  writeFile(onDisk("a"), "old");
  files.openForAppending(root + "a")->write(" and new");
  EXPECT_EQ(contentOf(onDisk("a")), "old and new");
  files.create(root + "a")->write("new");
  EXPECT_EQ(contentOf(onDisk("a")), "new");
  files.openForAppending(root + "b")->write("first");
  EXPECT_EQ(contentOf(onDisk("b")), "first");
}

TEST_F(DiskFilesInAFolder, HostPathsAreUsedAsTheyAre) {
  files.create(folder / "host.QVD")->write("x");
  EXPECT_EQ(contentOf(folder / "host.QVD"), "x");
  EXPECT_EQ(read(folder / "host.QVD"), "x");
}

TEST_F(DiskFilesInAFolder, WhatIsNoOrdinaryFileCannotBeReadOrWritten) {
  ASSERT_EQ(mkfifo(onDisk("pipe").c_str(), 0600), 0);
  for (const std::string& path : {root + "DATAFILE", root + "pipe", std::string("/dev/null")}) {
    const auto [readFault, readMessage] = faultOf([&] { static_cast<void>(files.openForReading(path)); });
    EXPECT_EQ(readFault, Fault::input) << path;
    EXPECT_THAT(readMessage, HasSubstr(path));
    const auto [writeFault, writeMessage] = faultOf([&] { static_cast<void>(files.create(path)); });
    EXPECT_EQ(writeFault, Fault::output) << path;
    EXPECT_THAT(writeMessage, HasSubstr(path));
  }
}

TEST_F(DiskFilesInAFolder, AMessageNamesTheFileWhereItLiesAndTheReason) {
  const auto [fault, message] = faultOf([&] { static_cast<void>(files.openForReading(root + "missing.val")); });
  EXPECT_EQ(fault, Fault::input);
  EXPECT_THAT(message, HasSubstr("C:\\QUARVEL5\\missing.val"));
  EXPECT_THAT(message, HasSubstr(onDisk("missing.val")));
  EXPECT_THAT(message, HasSubstr("No such file"));
}

TEST_F(DiskFilesInAFolder, WritingIntoAMissingFolderIsAFault) {
  EXPECT_EQ(faultOf([&] { static_cast<void>(files.create(root + "NOWHERE\\a")); }).first, Fault::output);
}

/// The largest file that this process may write, for the time of a test.
class FileSizeLimit {
 public:
  explicit FileSizeLimit(rlim_t bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit limit{bytes, before_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  FileSizeLimit(const FileSizeLimit&) = delete;
  FileSizeLimit& operator=(const FileSizeLimit&) = delete;
  ~FileSizeLimit() {
    setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, handler_);
  }

 private:
  void (*handler_)(int);
  rlimit before_{};
};

TEST_F(DiskFilesInAFolder, AWriteThatDoesNotFitIsAFaultAndKeepsWhatFitted) {
  const auto file = files.create(root + "a");
  {
    const FileSizeLimit limit(1000);
    EXPECT_EQ(faultOf([&] { file->write(std::string(1500, 'x')); }).first, Fault::output);
  }
  EXPECT_EQ(contentOf(onDisk("a")), std::string(1000, 'x'));
}

TEST_F(DiskFilesInAFolder, RenamingMovesTheContent) {
  writeFile(onDisk("a"), "content");
  files.rename(root + "a", root + "b");
  EXPECT_FALSE(files.exists(root + "a"));
  EXPECT_EQ(contentOf(onDisk("b")), "content");
}

TEST_F(DiskFilesInAFolder, RenamingNeverReplacesAFile) {
  writeFile(onDisk("a"), "new");
  writeFile(onDisk("b"), "precious");
  const auto [fault, message] = faultOf([&] { files.rename(root + "a", root + "b"); });
  EXPECT_EQ(fault, Fault::output);
  EXPECT_THAT(message, HasSubstr("C:\\QUARVEL5\\b"));
  EXPECT_EQ(contentOf(onDisk("a")), "new");
  EXPECT_EQ(contentOf(onDisk("b")), "precious");
}

TEST_F(DiskFilesInAFolder, RemovingWhatIsNotThereIsAFault) {
  writeFile(onDisk("a"), "x");
  EXPECT_TRUE(files.exists(root + "a"));
  files.remove(root + "a");
  EXPECT_FALSE(files.exists(root + "a"));
  EXPECT_EQ(faultOf([&] { files.remove(root + "a"); }).first, Fault::output);
}

TEST_F(DiskFilesInAFolder, ListsFilesByTheirEndingInAnyCaseSorted) {
  for (const char* name : {"DATAFILE/b.QVD", "DATAFILE/a.qvd", "DATAFILE/c.txt", "DATAFILE/QVD"})
    writeFile(onDisk(name), "");
  std::filesystem::create_directory(onDisk("DATAFILE/folder.QVD"));
  EXPECT_THAT(files.list(root + "DATAFILE\\", ".QVD"), ElementsAre("a.qvd", "b.QVD"));
  EXPECT_THAT(files.list(root + "NOWHERE\\", ".QVD"), IsEmpty());
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
