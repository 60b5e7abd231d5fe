#include "platform/headless/memory_files.h"

#include <gtest/gtest.h>

#include "values/runtime_error.h"

/// What only files in memory can be made to do; what they have in common with a disk's is in files_test.cpp.
namespace korvinel::platform {
namespace {

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

TEST(FilesInMemory, AFileWhoseFolderHasGoneCanNeitherBeReadOnNorWrittenOn) {
  MemoryFiles files;
  files.content["E:\\b"] = "content";
  const auto output = files.create("E:\\a");
  const auto input = files.openForReading("E:\\b");
  output->write("before");
  files.goneFolder = "E:\\";
  EXPECT_THROW(output->write("after"), RuntimeError);
  EXPECT_THROW(output->synchronise(), RuntimeError);
  EXPECT_THROW(input->take(), RuntimeError);
  EXPECT_THROW(files.remove("E:\\a"), RuntimeError);
  files.goneFolder.clear();
  EXPECT_EQ(files.content["E:\\a"], "before");
}

TEST(FilesInMemory, AFileThatCannotBeOpenedOrReadOnIsThereNevertheless) {
  MemoryFiles files;
  files.content["a"] = files.content["b"] = "abc";
  files.unreadable.push_back("a");
  EXPECT_TRUE(files.exists("a"));
  EXPECT_THROW(static_cast<void>(files.openForReading("a")), RuntimeError);
  files.failingAt["b"] = 1;
  const auto file = files.openForReading("b");
  EXPECT_EQ(file->take(), 'a');
  EXPECT_THROW(file->take(), RuntimeError);
}

TEST(FilesInMemory, TakeNoNameThatTheirRulesForbid) {
  MemoryFiles files;
  files.longestName = 10;
  files.devices = {"NUL"};
  for (const char* name : {"C:\\nul.QVD", "C:\\12345678901"}) {
    EXPECT_THROW(static_cast<void>(files.create(name)), RuntimeError) << name;
    EXPECT_THROW(static_cast<void>(files.openForAppending(name)), RuntimeError) << name;
  }
  EXPECT_NO_THROW(static_cast<void>(files.create("C:\\1234567890")));
}

}  // namespace
}  // namespace korvinel::platform
