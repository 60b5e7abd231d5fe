#pragma once

#include <functional>
#include <string>

namespace korvinel::platform {

/// Calls `onElapsed` again and again while it is enabled, each time after its interval.
class IntervalTimer {
 public:
  virtual ~IntervalTimer() = default;
  virtual void setIntervalMs(int interval) = 0;  ///< 1..65535; a running timer starts anew
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
  /// Seconds on a clock that only goes forward, so that a wait which spans midnight ends.
  [[nodiscard]] virtual double seconds() const = 0;
  [[nodiscard]] virtual CalendarTime localTime() const = 0;
};

/// A date as "dd/mm/yyyy".
[[nodiscard]] std::string dateText(const CalendarTime& time);

struct EventPump {
  virtual ~EventPump() = default;
  /// Handles what the user and the timers have brought about; may sleep up to some milliseconds until there is
  /// something. Throws ProgramEnd once the program has been ended.
  virtual void process() = 0;
  /// The same, but never sleeps: for loops that have work of their own and look at the flags between two pieces of it.
  virtual void poll() = 0;
};

/// Ends the program: thrown by an operation, it unwinds every operation that is under way. It is no std::exception, so
/// that nothing which skips faults holds it up.
struct ProgramEnd {};

}  // namespace korvinel::platform
