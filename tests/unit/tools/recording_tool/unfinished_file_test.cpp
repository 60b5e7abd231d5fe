#include "recording_tool/unfinished_file.h"

#include "platform/console.h"
#include "recording_tool/safe_output.h"
#include "tool_files.h"

#ifndef _WIN32
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#endif

namespace korvinel::tool {
namespace {

#ifndef _WIN32
/// Writes half a file in another process and sends it a signal; returns the signal that ended the process, or 0.
int signalThatEnded(int signal, const std::string& path) {
  const pid_t child = fork();
  if (child == 0) {
    platform::whenInterrupted(removeUnfinishedFiles);
    SafeOutput output(path, true);
    output.write("half");
    kill(getpid(), signal);
    for (;;) pause();
  }
  int status = 0;
  waitpid(child, &status, 0);
  return WIFSIGNALED(status) ? WTERMSIG(status) : 0;
}

TEST(SafeOutput, LeavesNothingBehindWhereASignalEndsTheProgram) {
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    const TemporaryFolder folder;
    writeFile(folder / "a", "before");
    EXPECT_EQ(signalThatEnded(signal, folder / "a"), signal);
    EXPECT_EQ(entriesIn(folder.path()), 1) << signal;
    EXPECT_EQ(bytesOf(folder / "a"), "before");
  }
}
#endif

}  // namespace
}  // namespace korvinel::tool
