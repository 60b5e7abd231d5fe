#pragma once

namespace korvinel::platform {

/// A window of this system is told of the session's end by messages, which the toolkit passes on: there are no signals.
struct EndSignals {
  [[nodiscard]] static int descriptor() { return -1; }
  static void endSoon() {}
};

}  // namespace korvinel::platform
