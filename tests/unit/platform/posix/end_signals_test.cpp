#include "platform/posix/end_signals.h"

#include <gtest/gtest.h>
#include <poll.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>

#include "unit/platform/posix/another_process.h"

namespace korvinel::platform {
namespace {

bool hasArrived(const EndSignals& signals) {
  pollfd look{signals.descriptor(), POLLIN, 0};
  return poll(&look, 1, 0) == 1;
}

/// In a process of its own, whose signals are as a terminal leaves them.
int inAFreshProcess(const std::function<int()>& act) {
  return inAnotherProcess([&] {
    for (const int signal : {SIGTERM, SIGHUP, SIGINT, SIGPIPE}) std::signal(signal, SIG_DFL);
    return act();
  });
}

TEST(EndSignals, EachOneArrivesOnThePipeAndStaysThere) {
  for (const int signal : {SIGTERM, SIGHUP, SIGINT})
    EXPECT_EQ(inAFreshProcess([&] {
                const EndSignals signals;
                const bool before = hasArrived(signals);
                for (int again = 0; again < 3; ++again) raise(signal);
                return !before && hasArrived(signals) && hasArrived(signals) ? 0 : 1;
              }),
              0)
        << signal;
}

TEST(EndSignals, OneThatWasIgnoredStaysIgnored) {
  EXPECT_EQ(inAFreshProcess([] {
              std::signal(SIGHUP, SIG_IGN);
              const EndSignals signals;
              raise(SIGHUP);
              return hasArrived(signals) ? 1 : 0;
            }),
            0);
}

TEST(EndSignals, AClosedPipeIsAFaultOfTheWrite) {
  EXPECT_EQ(inAFreshProcess([] {
              const EndSignals signals;
              int ends[2] = {-1, -1};
              if (pipe(ends) != 0) return 1;
              close(ends[0]);
              return write(ends[1], "x", 1) == -1 && errno == EPIPE ? 0 : 2;
            }),
            0);
}

TEST(EndSignals, HaveTheirUsualMeaningAfterwards) {
  const pid_t child = fork();
  if (child == 0) {
    std::signal(SIGTERM, SIG_DFL);
    { const EndSignals signals; }
    raise(SIGTERM);
    _exit(0);
  }
  int status = 0;
  waitpid(child, &status, 0);
  EXPECT_TRUE(WIFSIGNALED(status));
  EXPECT_EQ(WTERMSIG(status), SIGTERM);
}

}  // namespace
}  // namespace korvinel::platform
