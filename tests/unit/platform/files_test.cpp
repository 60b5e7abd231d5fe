#include "platform/files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <optional>

#include "platform/headless/memory_files.h"
#include "temporary_folder.h"
#include "unit/platform/disk_faults.h"

#ifndef _WIN32
#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>

#include "unit/platform/posix/another_process.h"
#endif

namespace korvinel::platform {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

bool isRefused(const std::function<void()>& act) { return faultOf(act).first == Fault::output; }

/// What all files must have in common: those on this system's disk, by the host's paths and by the program's own paths,
/// and those in memory that other tests use.
struct FilesOfEveryKind : testing::TestWithParam<const char*> {
  TemporaryFolder folder;
  const std::string kind = GetParam();
  const bool memory = kind == "memory";
  const std::string root = folder.path() + (kind == "driveC" ? "/drive_c/QUARVEL5/" : "/");  ///< on the host's disk
  MemoryFiles inMemory;
  std::unique_ptr<Files> onDisk = hostFiles(kind == "driveC" ? folder.path() : "");
  Files& files = memory ? static_cast<Files&>(inMemory) : *onDisk;

  void SetUp() override { std::filesystem::create_directories(root); }

  /// The path to pass to the files; for "" their folder, with its separator.
  std::string path(const std::string& name) const {
    std::string whole = (kind == "driveC" ? "C:\\QUARVEL5\\" : root) + name;
#ifdef _WIN32
    const bool backslashes = true;
#else
    const bool backslashes = kind == "driveC";
#endif
    if (backslashes) std::replace(whole.begin(), whole.end(), '/', '\\');
    return whole;
  }
  void write(const std::string& name, const std::string& bytes) { files.create(path(name))->write(bytes); }
  std::string contentAt(const std::string& name) {
    const auto file = files.openForReading(path(name));
    std::string bytes;
    while (!file->atEnd()) bytes += static_cast<char>(static_cast<unsigned char>(file->take()));
    return bytes;
  }
  /// A folder with one file in it.
  void makeFolder(const std::string& name) {
    std::filesystem::create_directory(root + name);
    write(name + "/inner.QVD", "x");
  }
  /// The path of a folder that does not exist, with its separator.
  std::string missingFolder() { return inMemory.goneFolder = path("missing/"); }

  /// Acts while only `bytes` more can be written to a file; false if this system cannot simulate that.
  bool withRoomFor(int bytes, const std::function<void()>& act);
  /// The result of an act while nothing may be changed; none if this system cannot simulate that.
  std::optional<int> readOnly(const std::function<int()>& act);
};

#ifdef _WIN32
bool FilesOfEveryKind::withRoomFor(int bytes, const std::function<void()>& act) {
  if (!memory) return false;
  inMemory.freeSpace = bytes;
  act();
  return true;
}

std::optional<int> FilesOfEveryKind::readOnly(const std::function<int()>& act) {
  if (!memory) return std::nullopt;
  inMemory.readOnly = true;
  return act();
}
#else
bool FilesOfEveryKind::withRoomFor(int bytes, const std::function<void()>& act) {
  inMemory.freeSpace = bytes;
  const auto handler = std::signal(SIGXFSZ, SIG_IGN);
  rlimit before{};
  getrlimit(RLIMIT_FSIZE, &before);
  const rlimit limit{static_cast<rlim_t>(bytes), before.rlim_max};
  setrlimit(RLIMIT_FSIZE, &limit);
  act();
  setrlimit(RLIMIT_FSIZE, &before);
  std::signal(SIGXFSZ, handler);
  return true;
}

std::optional<int> FilesOfEveryKind::readOnly(const std::function<int()>& act) {
  inMemory.readOnly = true;
  if (memory) return act();
  chmod(root.c_str(), 0555);
  constexpr uid_t somebodyElse = 54321;  // a user number without an account
  // Permissions do not bind root.
  const int result = inAnotherProcess(act, getuid() == 0 ? somebodyElse : 0);
  chmod(root.c_str(), 0755);
  return result;
}
#endif

#ifdef _WIN32
const auto kinds = testing::Values("memory", "disk");  // the program's own paths are the host's
#else
const auto kinds = testing::Values("memory", "disk", "driveC");
#endif
INSTANTIATE_TEST_SUITE_P(Implementations, FilesOfEveryKind, kinds,
                         [](const auto& kind) { return std::string(kind.param); });

TEST_P(FilesOfEveryKind, AFileKnowsItsSizeWithoutBeingRead) {
  write("a.QVD", std::string(40'000, 'x'));
  const auto file = files.openForReading(path("a.QVD"));
  EXPECT_EQ(file->size(), 40'000);
  EXPECT_EQ(file->position(), 0);
}

TEST_P(FilesOfEveryKind, GiveBackEveryByteThatWasWritten) {
  std::string bytes;
  for (int i = 0; i < 100'000; ++i) bytes += static_cast<char>(i * 7 % 256);
  write("a.QVD", bytes);
  EXPECT_TRUE(contentAt("a.QVD") == bytes);
}

TEST_P(FilesOfEveryKind, ReadingCountsTheBytesTaken) {
  write("a", "abc");
  const auto file = files.openForReading(path("a"));
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

TEST_P(FilesOfEveryKind, AWriteCanBeReadBeforeTheFileIsClosed) {
  const auto file = files.create(path("a"));
  file->write("block 1");
  EXPECT_EQ(contentAt("a"), "block 1");
  EXPECT_NO_THROW(file->synchronise());
  file->write(", block 2");
  EXPECT_EQ(contentAt("a"), "block 1, block 2");
}

TEST_P(FilesOfEveryKind, CreateEmptiesAndAppendKeeps) {
  write("a", "old");
  const auto appended = files.openForAppending(path("a"));
  appended->write(" and new");
  EXPECT_NO_THROW(appended->synchronise());
  EXPECT_EQ(contentAt("a"), "old and new");
  write("b", "something long");
  write("b", "short");
  EXPECT_EQ(contentAt("b"), "short");
  files.openForAppending(path("c"))->write("first");
  EXPECT_EQ(contentAt("c"), "first");
}

TEST_P(FilesOfEveryKind, ANewFileTakesNobodysPlace) {
  files.createNew(path("a"))->write("first");
  EXPECT_TRUE(isRefused([&] { static_cast<void>(files.createNew(path("a"))); }));
  EXPECT_EQ(contentAt("a"), "first");
}

TEST_P(FilesOfEveryKind, WhatIsMissingIsAFaultThatNamesIt) {
  const auto [fault, message] = faultOf([&] { static_cast<void>(files.openForReading(path("missing.val"))); });
  EXPECT_EQ(fault, Fault::input);
  EXPECT_THAT(message, HasSubstr(path("missing.val")));
  EXPECT_TRUE(isRefused([&] { files.remove(path("missing.val")); }));
  EXPECT_TRUE(isRefused([&] { files.rename(path("missing.val"), path("b")); }));
  EXPECT_FALSE(files.exists(path("b")));
}

TEST_P(FilesOfEveryKind, NothingComesIntoAFolderThatIsNotThere) {
  write("a", "content");
  const std::string missing = missingFolder();
  EXPECT_TRUE(isRefused([&] { static_cast<void>(files.create(missing + "b")); }));
  EXPECT_TRUE(isRefused([&] { static_cast<void>(files.createNew(missing + "b")); }));
  EXPECT_TRUE(isRefused([&] { static_cast<void>(files.openForAppending(missing + "b")); }));
  EXPECT_TRUE(isRefused([&] { files.rename(path("a"), missing + "b"); }));
  EXPECT_EQ(files.lock(missing + "lock", "anna").outcome, LockOutcome::notWritable);
  EXPECT_THAT(files.list(missing, ""), IsEmpty());
  EXPECT_FALSE(files.exists(missing + "b"));
  EXPECT_EQ(contentAt("a"), "content");
}

TEST_P(FilesOfEveryKind, AFolderIsNoFile) {
  makeFolder("folder");
  const std::string name = path("folder");
  EXPECT_TRUE(files.exists(name));
  EXPECT_EQ(faultOf([&] { static_cast<void>(files.openForReading(name)); }).first, Fault::input);
  EXPECT_TRUE(isRefused([&] { static_cast<void>(files.create(name)); }));
  EXPECT_TRUE(isRefused([&] { static_cast<void>(files.createNew(name)); }));
  EXPECT_TRUE(isRefused([&] { static_cast<void>(files.openForAppending(name)); }));
  EXPECT_TRUE(isRefused([&] { files.remove(name); }));
  write("a", "content");
  EXPECT_TRUE(isRefused([&] { files.rename(path("a"), name); }));
  EXPECT_EQ(contentAt("a"), "content");
  EXPECT_EQ(contentAt("folder/inner.QVD"), "x");
}

TEST_P(FilesOfEveryKind, AWriteThatDoesNotFitIsAFaultAndKeepsWhatFitted) {
  const auto file = files.create(path("a"));
  bool refused = false;
  if (!withRoomFor(1000, [&] { refused = isRefused([&] { file->write(std::string(1500, 'x')); }); }))
    GTEST_SKIP() << "no limit can be set here";
  EXPECT_TRUE(refused);
  EXPECT_EQ(contentAt("a"), std::string(1000, 'x'));
}

TEST_P(FilesOfEveryKind, WhereNothingMayBeChangedEverythingCanBeRead) {
  write("a", "content");
  const std::vector<std::function<void()>> changes = {[&] { static_cast<void>(files.create(path("b"))); },
                                                      [&] { static_cast<void>(files.createNew(path("b"))); },
                                                      [&] { static_cast<void>(files.openForAppending(path("b"))); },
                                                      [&] { static_cast<void>(files.openForAppending(path("a"))); },
                                                      [&] { files.remove(path("a")); },
                                                      [&] { files.rename(path("a"), path("b")); }};
  const auto differences = readOnly([&] {
    int count = 0;
    for (const auto& change : changes) count += isRefused(change) ? 0 : 1;
    count += contentAt("a") == "content" && files.exists(path("a")) ? 0 : 10;
    count += files.lock(path("lock"), "anna").outcome == LockOutcome::notWritable ? 0 : 20;
    return count;
  });
  if (!differences) GTEST_SKIP() << "no permission can be taken away here";
  EXPECT_EQ(*differences, 0);
  EXPECT_EQ(contentAt("a"), "content");
}

TEST_P(FilesOfEveryKind, RenamingMovesTheContentAndNeverReplaces) {
  write("a", "new");
  files.rename(path("a"), path("b"));
  EXPECT_FALSE(files.exists(path("a")));
  EXPECT_EQ(contentAt("b"), "new");
  write("c", "precious");
  const auto [fault, message] = faultOf([&] { files.rename(path("b"), path("c")); });
  EXPECT_EQ(fault, Fault::output);
  EXPECT_THAT(message, HasSubstr(path("c")));
  EXPECT_EQ(contentAt("b"), "new");
  EXPECT_EQ(contentAt("c"), "precious");
}

TEST_P(FilesOfEveryKind, AFileThatIsRemovedIsGone) {
  write("a", "x");
  EXPECT_TRUE(files.exists(path("a")));
  files.remove(path("a"));
  EXPECT_FALSE(files.exists(path("a")));
  EXPECT_TRUE(isRefused([&] { files.remove(path("a")); }));
}

TEST_P(FilesOfEveryKind, ListsTheFilesOfOneFolderByTheirEndingInAnyCaseSorted) {
  for (const char* name : {"b.QVD", "a.qvd", "c.txt", "QVD"}) write(name, "");
  makeFolder("folder.QVD");
  EXPECT_THAT(files.list(path(""), ".QVD"), ElementsAre("a.qvd", "b.QVD"));
  std::string withoutSeparator = path("");
  withoutSeparator.pop_back();
  EXPECT_THAT(files.list(withoutSeparator, ".QVD"), ElementsAre("a.qvd", "b.QVD"));
  EXPECT_THAT(files.list(path(""), ""), ElementsAre("QVD", "a.qvd", "b.QVD", "c.txt"));
  EXPECT_THAT(files.list(path("nowhere/"), ".QVD"), IsEmpty());
}

TEST_P(FilesOfEveryKind, ANameThatCanBeNoFilesIsToldBeforehand) {
  for (const char* name : {"", ".", "..", "a/b.QVD", "a\\b.QVD"})
    EXPECT_EQ(files.nameFault(path(""), name), NameFault::letters) << name;
  EXPECT_EQ(files.nameFault(path(""), std::string(300, 'a')), NameFault::tooLong);
  for (const char* name : {"esame.QVD", "Rossi Anna 2.QVD", "perch\u00E9 \u20AC.QVD"}) {
    EXPECT_EQ(files.nameFault(path(""), name), NameFault::none) << name;
    EXPECT_NO_THROW(write(name, "x")) << name;
    EXPECT_EQ(contentAt(name), "x");
  }
}

TEST_P(FilesOfEveryKind, ALockIsGivenOnceAndTheSecondIsToldWhoHasIt) {
  const LockAttempt first = files.lock(path("lock"), "anna");
  const LockAttempt second = files.lock(path("lock"), "bruno");
  EXPECT_EQ(first.outcome, LockOutcome::taken);
  EXPECT_NE(first.lock, nullptr);
  EXPECT_EQ(second.outcome, LockOutcome::held);
  EXPECT_EQ(second.lock, nullptr);
  EXPECT_EQ(second.told, "anna");
  EXPECT_EQ(contentAt("lock"), "anna");
}

TEST_P(FilesOfEveryKind, ALockEndsWithItsObjectAndTakesTheNoteAlong) {
  files.lock(path("lock"), "a rather long note");
  EXPECT_EQ(contentAt("lock"), "");
  const LockAttempt next = files.lock(path("lock"), "bruno");
  EXPECT_EQ(next.outcome, LockOutcome::taken);
  EXPECT_EQ(contentAt("lock"), "bruno");
}

TEST_P(FilesOfEveryKind, TheFileOfALockStays) {
  files.lock(path("lock"), "anna");
  EXPECT_TRUE(files.exists(path("lock")));
}

TEST_P(FilesOfEveryKind, ANoteThatACrashHasLeftIsNoLock) {
  files.create(path("lock"))->write("a note of last year, by somebody with a long name");
  const LockAttempt attempt = files.lock(path("lock"), "anna");
  EXPECT_EQ(attempt.outcome, LockOutcome::taken);
  EXPECT_EQ(contentAt("lock"), "anna");
}

TEST_P(FilesOfEveryKind, LocksOfTwoFilesAreIndependent) {
  const LockAttempt first = files.lock(path("lock"), "anna");
  EXPECT_EQ(files.lock(path("other"), "bruno").outcome, LockOutcome::taken);
}

TEST_P(FilesOfEveryKind, ALockedFileCanStillBeReadAndListed) {
  const LockAttempt held = files.lock(path("lock"), "anna");
  EXPECT_EQ(contentAt("lock"), "anna");
  EXPECT_THAT(files.list(path(""), "lock"), ElementsAre("lock"));
}

TEST_P(FilesOfEveryKind, ALockBringsNoFileBackThatWasRemoved) {
  LockAttempt held = files.lock(path("lock"), "anna");
  static_cast<void>(faultOf([&] { files.remove(path("lock")); }));  // some systems refuse
  const bool there = files.exists(path("lock"));
  held.lock.reset();
  EXPECT_EQ(files.exists(path("lock")), there);
}

}  // namespace
}  // namespace korvinel::platform
