#pragma once

namespace korvinel::platform {

/// Keeps the machine awake and its screen on. A request: where the system cannot, nothing happens.
struct Wakefulness {
  virtual ~Wakefulness() = default;
  virtual void hold() = 0;     ///< until release(); again without effect
  virtual void release() = 0;  ///< without effect unless held; the end of the program releases too
};

}  // namespace korvinel::platform
