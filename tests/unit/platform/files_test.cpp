#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "platform/headless/memory_files.h"
#include "temporary_folder.h"
#include "values/runtime_error.h"

namespace korvinel::platform {
namespace {

/// What every kind of files must do alike, those of the disk and those in memory that tests stand on.
struct FilesOfEveryKind : testing::TestWithParam<const char*> {
  TemporaryFolder folder;
  MemoryFiles inMemory;
  std::unique_ptr<Files> onDisk = hostFiles("");
  Files& files = std::string(GetParam()) == "memory" ? static_cast<Files&>(inMemory) : *onDisk;

  std::string path(const std::string& name) const {
    std::string whole = folder / name;
#ifdef _WIN32
    std::replace(whole.begin(), whole.end(), '/', '\\');
#endif
    return whole;
  }
  std::string contentAt(const std::string& name) {
    const auto file = files.openForReading(path(name));
    std::string bytes;
    while (!file->atEnd()) bytes += static_cast<char>(static_cast<unsigned char>(file->take()));
    return bytes;
  }
};

INSTANTIATE_TEST_SUITE_P(Implementations, FilesOfEveryKind, testing::Values("memory", "disk"),
                         [](const auto& kind) { return std::string(kind.param); });

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

TEST_P(FilesOfEveryKind, ALockedFileCanStillBeReadWrittenAndListed) {
  const LockAttempt held = files.lock(path("lock"), "anna");
  files.openForAppending(path("lock"))->write(" e bruno");
  EXPECT_EQ(contentAt("lock"), "anna e bruno");
}

TEST_P(FilesOfEveryKind, ANewFileTakesNobodysPlace) {
  files.createNew(path("a"))->write("first");
  EXPECT_THROW(static_cast<void>(files.createNew(path("a"))), RuntimeError);
  EXPECT_EQ(contentAt("a"), "first");
}

TEST(FilesInMemory, ALockThatCannotBeHadSaysWhy) {
  MemoryFiles files;
  files.offersLocks = false;
  EXPECT_EQ(files.lock("a", "anna").outcome, LockOutcome::notOffered);
  files.readOnly = true;
  EXPECT_EQ(files.lock("a", "anna").outcome, LockOutcome::notWritable);
}

TEST(FilesInMemory, ALockOnReadOnlyFilesIsSeenThroughTheFileThatIsThere) {
  MemoryFiles files;
  files.content["a"] = "";
  const LockAttempt held = files.lock("a", "anna");
  files.readOnly = true;
  EXPECT_EQ(files.lock("a", "bruno").outcome, LockOutcome::held);
}

}  // namespace
}  // namespace korvinel::platform
