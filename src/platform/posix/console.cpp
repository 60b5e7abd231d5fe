#include "platform/console.h"

#include <unistd.h>

#include <csignal>
#include <thread>

namespace korvinel::platform {
namespace {

/// The signals that end the program; ignored ones, as under nohup, stay ignored.
sigset_t interruptions() {
  sigset_t signals;
  sigemptyset(&signals);
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    struct sigaction action {};
    sigaction(signal, nullptr, &action);
    if (action.sa_handler != SIG_IGN) sigaddset(&signals, signal);
  }
  return signals;
}

void waitForInterruption(const sigset_t& signals, const std::function<void()>& act) {
  int signal = 0;
  if (sigwait(&signals, &signal) != 0) return;
  act();
  std::signal(signal, SIG_DFL);
  pthread_sigmask(SIG_UNBLOCK, &signals, nullptr);
  raise(signal);
}

}  // namespace

// Nothing changes bytes on this system, and their encoding is up to the terminal.
struct Console::Streams {};
Console::Console() = default;
Console::~Console() = default;

void joinTerminal() {}

std::vector<std::string> commandLineWords(int count, const char* const* arguments) {
  return count < 1 ? std::vector<std::string>() : std::vector<std::string>(arguments + 1, arguments + count);
}

bool errorsAreWatched() { return isatty(STDERR_FILENO) == 1; }

void whenInterrupted(std::function<void()> act) {
  const sigset_t signals = interruptions();
  pthread_sigmask(SIG_BLOCK, &signals, nullptr);  // in every thread, so that the waiting one receives them
  std::thread([signals, act = std::move(act)] { waitForInterruption(signals, act); }).detach();
}

}  // namespace korvinel::platform
