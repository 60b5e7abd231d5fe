#pragma once

#include <algorithm>
#include <cstddef>
#include <string>

namespace korvinel::platform {

/// Watches the looks at a line that carries frames for whatever may have cost it a byte: from then on nobody knows
/// which channel a byte belongs to. Times are seconds of a clock that goes on while the machine sleeps.
class LineWatch {
 public:
  /// A system's buffer of 4096 bytes takes no more once this many wait in it (the terminals of Linux).
  static constexpr std::size_t fullSystemBuffer = 4096 - 128;
  /// A stream of 512 bytes a second has filled that buffer in less than 8 seconds.
  static constexpr double longestUnread = 7.0;
  /// Sixteen frames' time, and longer than an adapter keeps bytes back.
  static constexpr double silence = 0.125;

  void begin(double now) {  ///< nothing is known of what was before
    lastLook_ = lastArrival_ = now;
    doubt_.clear();
  }

  /// Everything that the system held has been taken over: `arrived` bytes.
  void looked(double now, std::size_t arrived) {
    const double unread = now - lastLook_;
    if (unread > longestUnread)
      suspect("la porta non è stata letta per " + std::to_string(static_cast<int>(unread)) + " secondi");
    if (arrived >= fullSystemBuffer) suspect("la memoria del sistema per la porta era piena");
    if (arrived > 0) lastArrival_ = now;
    lastLook_ = std::max(lastLook_, now);
  }

  void suspect(const std::string& reason) {  ///< the first reason is kept
    if (doubt_.empty()) doubt_ = reason;
  }

  void endDoubt() { doubt_.clear(); }
  [[nodiscard]] const std::string& doubt() const { return doubt_; }
  [[nodiscard]] double silentFor() const { return lastLook_ - lastArrival_; }

 private:
  double lastLook_ = 0, lastArrival_ = 0;
  std::string doubt_;
};

}  // namespace korvinel::platform
