#pragma once

#include "platform/machine.h"

namespace korvinel::platform {

/// Priorities by the niceness of the calling thread, -20 (most processor time) to 19. The user-interface thread
/// requests both, so they add up. If the system refuses, the most that it grants is used; never a realtime class.
class PosixMachine : public Machine {
 public:
  void setThreadPriority(int stepsAboveNormal) override;
  void setPriorityClass(int priorityClass) override;
  std::string homeFolder() override;
  void tell(const std::string& line) override;
  [[nodiscard]] Identity identity() override { return hostIdentity(); }

 private:
  void askForNiceness() const;

  int threadSteps_ = 0;
  int classSteps_ = 0;
};

}  // namespace korvinel::platform
