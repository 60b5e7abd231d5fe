#pragma once

#include <string>

namespace korvinel::platform {

/// The user, computer and process that run the program.
struct Identity {
  std::string user, computer;
  int process;
};

/// What the program needs of the operating system. Priorities are requests: a refusal is not an error.
struct Machine {
  virtual ~Machine() = default;
  virtual void setThreadPriority(int stepsAboveNormal) = 0;  ///< of the calling thread; 1 = one step above normal
  virtual void setPriorityClass(int priorityClass) = 0;      ///< of the process; 128 = high
  virtual std::string homeFolder() = 0;  ///< the user's, with a trailing separator, in the host's notation
  /// Writes a line to standard error.
  virtual void tell(const std::string& line) = 0;
  [[nodiscard]] virtual Identity identity() = 0;
};

/// The identity of this process according to the operating system.
[[nodiscard]] Identity hostIdentity();

}  // namespace korvinel::platform
