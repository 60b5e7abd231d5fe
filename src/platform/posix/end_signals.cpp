#include "platform/posix/end_signals.h"

#include <fcntl.h>

#include <cerrno>
#include <csignal>

namespace korvinel::platform {
namespace {

constexpr int endingSignals[] = {SIGTERM, SIGHUP, SIGINT};
constexpr int faultSignals[] = {SIGPIPE, SIGXFSZ};

volatile std::sig_atomic_t pipeEnd = -1;

/// Only a write to a pipe is safe here. A full pipe needs no further byte.
void passOn(int) {
  const int error = errno;
  if (pipeEnd >= 0) static_cast<void>(write(pipeEnd, "!", 1) == 1);
  errno = error;
}

/// Instead of SIG_IGN, which programs started from here would inherit.
void letTheWriteFail(int) {}

void handle(int signal, void (*handler)(int)) {
  struct sigaction before {};
  sigaction(signal, nullptr, &before);
  if (before.sa_handler == SIG_IGN) return;
  struct sigaction action {};
  action.sa_handler = handler;
  action.sa_flags = SA_RESTART;
  sigaction(signal, &action, nullptr);
}

}  // namespace

EndSignals::EndSignals() {
  int ends[2] = {-1, -1};
  if (pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0) return;
  reading_ = FileDescriptor(ends[0]);
  writing_ = FileDescriptor(ends[1]);
  pipeEnd = writing_.get();
  for (const int signal : endingSignals) handle(signal, passOn);
  for (const int signal : faultSignals) handle(signal, letTheWriteFail);
}

EndSignals::~EndSignals() {
  for (const int signal : endingSignals) handle(signal, SIG_DFL);
  for (const int signal : faultSignals) handle(signal, SIG_DFL);
  pipeEnd = -1;
}

void EndSignals::endSoon() {
  constexpr unsigned seconds = 2;
  ::signal(SIGALRM, SIG_DFL);
  alarm(seconds);
}

}  // namespace korvinel::platform
