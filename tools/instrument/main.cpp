#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <array>
#include <iostream>

#include "instrument/session.h"

using namespace korvinel::instrument;

namespace {

// Signals wake the session through a pipe, so that none is missed between checking a flag and waiting.
std::array<int, 2> endPipe{-1, -1};

void askToEnd(int /*signal*/) { [[maybe_unused]] const auto written = ::write(endPipe[1], "", 1); }

void endOnSignals() {
  if (::pipe2(endPipe.data(), O_CLOEXEC | O_NONBLOCK) != 0) throw std::runtime_error("cannot set up the signals");
  struct sigaction end {};
  end.sa_handler = askToEnd;
  sigaction(SIGINT, &end, nullptr);
  sigaction(SIGTERM, &end, nullptr);
  struct sigaction inherited {};
  sigaction(SIGHUP, nullptr, &inherited);
  if (inherited.sa_handler != SIG_IGN) sigaction(SIGHUP, &end, nullptr);  // stays ignored under nohup
  ::signal(SIGPIPE, SIG_IGN);  // the reader of the ready line may have exited
}

bool askedToEnd() {
  char byte = 0;
  return ::read(endPipe[0], &byte, 1) == 1;
}

void run(const Options& options) {
  endOnSignals();
  Session session(options, std::cout);
  constexpr std::chrono::minutes longestNap{1};
  while (!askedToEnd() && session.step(longestNap, endPipe[0])) {
  }
}

}  // namespace

int main(int count, char** arguments) {
  try {
    const Options options = parseOptions({arguments + 1, arguments + count}, userDataFolder());
    if (options.answersOnly()) {
      std::cout << (options.help ? helpText() : "korvinel-instrument " KORVINEL_VERSION "\n");
      return 0;
    }
    run(options);
    return 0;
  } catch (const UsageError& error) {
    std::cerr << "korvinel-instrument: " << error.what() << "\nTry 'korvinel-instrument --help'.\n";
    return 2;
  } catch (const std::exception& error) {
    std::cerr << "korvinel-instrument: " << error.what() << '\n';
    return 1;
  }
}
