#pragma once

#include "platform/wakefulness.h"

namespace korvinel::platform {

/// By the system's own call, for the calling thread.
class SystemWakefulness : public Wakefulness {
 public:
  void hold() override;
  void release() override;
};

}  // namespace korvinel::platform
