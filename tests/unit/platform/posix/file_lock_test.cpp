#include "platform/posix/file_lock.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "temporary_folder.h"
#include "unit/platform/posix/another_process.h"

namespace korvinel::platform {
namespace {

constexpr uid_t somebodyElse = 54321;  // a user number without an account

mode_t modeOf(const std::string& path) {
  struct stat status {};
  return stat(path.c_str(), &status) == 0 ? status.st_mode & 07777 : 0;
}

int outcomeAt(const std::string& path) { return static_cast<int>(lockFile(path, "bruno").outcome); }

constexpr int taken = static_cast<int>(LockOutcome::taken);
constexpr int held = static_cast<int>(LockOutcome::held);
constexpr int notWritable = static_cast<int>(LockOutcome::notWritable);
constexpr int notOrdinary = static_cast<int>(LockOutcome::notOrdinary);

TEST(LockOfAFile, IsHeldAgainstAnotherProcessAndFreedByItsDeath) {
  const TemporaryFolder folder;
  const std::string path = folder / "lock";
  LockAttempt kept{};
  WaitingProcess other([&] { kept = lockFile(path, "anna"); });
  const LockAttempt attempt = lockFile(path, "bruno");
  EXPECT_EQ(attempt.outcome, LockOutcome::held);
  EXPECT_EQ(attempt.told, "anna");
  other.end();
  EXPECT_EQ(contentOf(path), "anna");  // the killed process could not erase its note
  EXPECT_EQ(lockFile(path, "bruno").outcome, LockOutcome::taken);
}

TEST(LockOfAFile, IsNotHandedDownToAProgramThatIsStarted) {
  const TemporaryFolder folder;
  const std::string path = folder / "lock";
  LockAttempt own = lockFile(path, "anna");
  int started[2];
  ASSERT_EQ(pipe2(started, O_CLOEXEC), 0);
  const pid_t child = fork();
  if (child == 0) {
    execl("/bin/sleep", "sleep", "60", nullptr);
    _exit(1);
  }
  close(started[1]);
  char sign = 0;
  EXPECT_EQ(read(started[0], &sign, 1), 0);  // end of file: exec has closed the child's end
  close(started[0]);
  own.lock.reset();
  EXPECT_EQ(outcomeAt(path), taken);
  kill(child, SIGKILL);
  waitpid(child, nullptr, 0);
}

TEST(LockOfAFile, IsOneForAllUsersOfTheMachine) {
  if (getuid() != 0) GTEST_SKIP() << "only root can be another user";
  const TemporaryFolder folder;
  const std::string path = folder / "lock";
  {
    const LockAttempt own = lockFile(path, "anna");
    ASSERT_EQ(modeOf(path), 0644U);  // the other user may only read it
    EXPECT_EQ(inAnotherProcess([&] { return outcomeAt(path); }, somebodyElse), held);
  }
  EXPECT_EQ(inAnotherProcess([&] { return outcomeAt(path); }, somebodyElse), taken);
}

TEST(LockOfAFile, SaysWhereTheFolderCannotBeWritten) {
  if (getuid() != 0) GTEST_SKIP() << "only root can be another user";
  const TemporaryFolder folder;
  EXPECT_EQ(inAnotherProcess([&] { return outcomeAt(folder / "lock"); }, somebodyElse), notWritable);
  EXPECT_EQ(outcomeAt(folder / "missing/lock"), notWritable);
}

TEST(LockOfAFile, FollowsNoLinkAndTakesNothingButAFile) {
  const TemporaryFolder folder;
  writeFile(folder / "precious", "content");
  std::filesystem::create_symlink(folder / "precious", folder / "link");
  std::filesystem::create_directory(folder / "folder");
  EXPECT_EQ(outcomeAt(folder / "link"), notOrdinary);
  EXPECT_EQ(outcomeAt(folder / "folder"), notOrdinary);
  EXPECT_EQ(contentOf(folder / "precious"), "content");
}

TEST(LockOfAFile, IsWritableByWhoeverMayWriteBesideIt) {
  const std::pair<mode_t, mode_t> cases[] = {{0700, 0600}, {0755, 0644}, {02775, 0666}, {01777, 0666}};
  for (const auto& [ofFolder, ofFile] : cases) {
    const TemporaryFolder folder;
    chmod(folder.path().c_str(), ofFolder);
    const LockAttempt own = lockFile(folder / "lock", "anna");
    EXPECT_EQ(modeOf(folder / "lock"), ofFile) << std::oct << ofFolder;
  }
}

}  // namespace
}  // namespace korvinel::platform
