#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <filesystem>
#include <string>
#include <vector>

namespace korvinel::instrument {
namespace {

namespace fs = std::filesystem;

/// The real program, running with its output in a pipe.
class Program {
 public:
  explicit Program(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), KORVINEL_INSTRUMENT_PROGRAM);
    std::vector<char*> pointers;
    pointers.reserve(arguments.size() + 1);
    for (std::string& argument : arguments) pointers.push_back(argument.data());
    pointers.push_back(nullptr);
    std::array<int, 2> pipe{};
    if (::pipe2(pipe.data(), O_CLOEXEC) != 0) return;
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, pipe[1], STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&actions, pipe[1], STDERR_FILENO);
    // Under nohup the test ignores SIGHUP, and so would the program.
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    sigset_t defaults;
    sigemptyset(&defaults);
    sigaddset(&defaults, SIGHUP);
    posix_spawnattr_setsigdefault(&attributes, &defaults);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGDEF);
    // 0: no process, if the program is missing. To kill(), -1 would mean all processes.
    if (posix_spawn(&process_, pointers[0], &actions, &attributes, pointers.data(), environ) != 0) process_ = 0;
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&actions);
    ::close(pipe[1]);
    output_ = pipe[0];
  }
  ~Program() {
    ::close(output_);
    if (process_ <= 0) return;
    ::kill(process_, SIGKILL);
    ::waitpid(process_, nullptr, 0);
  }
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  std::string readLine() const {
    std::string line;
    for (char letter = 0; ::read(output_, &letter, 1) == 1 && letter != '\n';) line += letter;
    return line;
  }
  bool started() const { return process_ > 0; }
  void raise(int signal) const {
    if (started()) ::kill(process_, signal);
  }
  int exitCode() {  // waits for the program's end; -1 if a signal ended it
    if (!started()) return -1;
    int status = 0;
    ::waitpid(process_, &status, 0);
    process_ = 0;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

 private:
  pid_t process_ = 0;
  int output_ = -1;
};

fs::path freshLink() {
  const fs::path folder = fs::path(testing::TempDir()) / ("program-" + std::to_string(::getpid()));
  fs::remove_all(folder);
  return folder / "COM1";
}

TEST(InstrumentProgram, EndsOnASignalAndRemovesItsLink) {
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    const fs::path link = freshLink();
    Program program({"--link", link.string()});
    ASSERT_TRUE(program.started());
    EXPECT_EQ(program.readLine().find("korvinel-instrument: ready on " + link.string() + " (/dev/pts/"), 0U);
    EXPECT_TRUE(fs::is_character_file(link));
    program.raise(signal);
    EXPECT_EQ(program.exitCode(), 0) << signal;
    EXPECT_FALSE(fs::is_symlink(link)) << signal;
  }
}

TEST(InstrumentProgram, RefusesAWrongCommandLineWithExitCodeTwo) {
  Program program({"--model", "asleep"});
  EXPECT_EQ(program.readLine().find("korvinel-instrument: unknown model 'asleep'"), 0U);
  EXPECT_EQ(program.exitCode(), 2);
}

TEST(InstrumentProgram, ReportsAFileItCannotUseWithExitCodeOne) {
  const fs::path link = freshLink();
  Program program({"--link", link.string(), "--play", (link.parent_path() / "missing.raw").string()});
  EXPECT_NE(program.readLine().find("missing.raw': no such file"), std::string::npos);
  EXPECT_EQ(program.exitCode(), 1);
}

TEST(InstrumentProgram, ShowsItsHelp) {
  Program program({"--help"});
  EXPECT_EQ(program.readLine(), "Usage: korvinel-instrument [OPTION]...");
  bool reachesItsEnd = false;
  for (int line = 0; line < 200 && !reachesItsEnd; ++line) reachesItsEnd = program.readLine().starts_with("Exit code:");
  EXPECT_TRUE(reachesItsEnd);
  EXPECT_EQ(program.exitCode(), 0);
}

}  // namespace
}  // namespace korvinel::instrument
