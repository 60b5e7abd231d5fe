#include "platform/posix/posix_machine.h"

#include <pwd.h>
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdio>

#include "platform/host_paths.h"

namespace korvinel::platform {
namespace {

constexpr int highPriorityClass = 128;
constexpr int stepsOfHighClass = 10;
constexpr int mostSteps = 15;  // more would slow the desktop down

}  // namespace

void PosixMachine::setThreadPriority(int stepsAboveNormal) {
  threadSteps_ = stepsAboveNormal;
  askForNiceness();
}

void PosixMachine::setPriorityClass(int priorityClass) {
  classSteps_ = priorityClass == highPriorityClass ? stepsOfHighClass : 0;
  askForNiceness();
}

std::string PosixMachine::homeFolder() { return platform::homeFolder() + "/"; }

void PosixMachine::tell(const std::string& line) { std::fprintf(stderr, "korvinel: %s\n", line.c_str()); }

void PosixMachine::askForNiceness() const {
  const int wanted = std::clamp(threadSteps_ + classSteps_, 0, mostSteps);
  for (int steps = wanted; steps > 0; --steps)
    if (setpriority(PRIO_PROCESS, 0, -steps) == 0) return;
}

Identity hostIdentity() {
  const passwd* account = getpwuid(getuid());
  std::array<char, 256> computer{};
  static_cast<void>(gethostname(computer.data(), computer.size() - 1));
  return {account != nullptr ? account->pw_name : std::to_string(getuid()), computer.data(), getpid()};
}

}  // namespace korvinel::platform
