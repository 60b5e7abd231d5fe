#pragma once

#include <algorithm>
#include <cstddef>
#include <string>

namespace korvinel::platform {

/// Watches a line that carries frames for anything that may have lost a byte: after that the channel of a byte is no
/// longer certain. Times are seconds of a clock that keeps running while the machine sleeps.
class LineWatch {
 public:
  /// A system buffer of 4096 bytes accepts no more once it holds this many (Linux terminals).
  static constexpr std::size_t fullSystemBuffer = 4096 - 128;
  /// A stream of 512 bytes per second fills that buffer in less than 8 seconds.
  static constexpr double longestUnread = 7.0;
  /// The time of sixteen frames, longer than an adapter holds bytes back.
  static constexpr double silence = 0.125;

  void begin(double now) {  ///< forgets everything before
    lastLook_ = lastArrival_ = now;
    doubt_.clear();
  }

  /// All `arrived` bytes that the system held have been taken.
  void looked(double now, std::size_t arrived) {
    const double unread = now - lastLook_;
    if (unread > longestUnread)
      suspect("la porta non è stata letta per " + std::to_string(static_cast<int>(unread)) + " secondi");
    if (arrived >= fullSystemBuffer) suspect("la memoria del sistema per la porta era piena");
    if (arrived > 0) lastArrival_ = now;
    lastLook_ = std::max(lastLook_, now);
  }

  void suspect(const std::string& reason) {  ///< only the first reason is kept
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
