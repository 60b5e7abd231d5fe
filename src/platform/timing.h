#pragma once

#include <functional>
#include <string>

namespace korvinel::platform {

/// While enabled, calls `onElapsed` after every interval.
class IntervalTimer {
 public:
  virtual ~IntervalTimer() = default;
  virtual void setIntervalMs(int interval) = 0;  ///< 1..65535; restarts a running timer
  virtual void setEnabled(bool enabled) = 0;     ///< enabling starts a whole interval
  [[nodiscard]] virtual int intervalMs() const = 0;
  [[nodiscard]] virtual bool enabled() const = 0;
  std::function<void()> onElapsed;
};

struct CalendarTime {
  int year, month, day, hour, minute, second;
};

struct Clock {
  virtual ~Clock() = default;
  /// Seconds of a monotonic clock, so that a wait across midnight ends.
  [[nodiscard]] virtual double seconds() const = 0;
  [[nodiscard]] virtual CalendarTime localTime() const = 0;
};

/// A date as "dd/mm/yyyy".
[[nodiscard]] std::string dateText(const CalendarTime& time);

struct EventPump {
  virtual ~EventPump() = default;
  /// Dispatches pending user and timer events; may sleep a few milliseconds until there are any. Throws ProgramEnd
  /// (program_end.h) once the program has ended.
  virtual void process() = 0;
  /// The same, but never sleeps: for loops with work of their own, which check the flags between two pieces of it.
  virtual void poll() = 0;
};

}  // namespace korvinel::platform
