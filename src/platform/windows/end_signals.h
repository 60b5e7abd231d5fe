#pragma once

namespace korvinel::platform {

/// There are no signals here: the session's end is reported by window messages, which the toolkit passes on.
struct EndSignals {
  [[nodiscard]] static int descriptor() { return -1; }
  static void endSoon() {}
};

}  // namespace korvinel::platform
