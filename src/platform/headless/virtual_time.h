#pragma once

#include <functional>
#include <map>
#include <utility>
#include <vector>

#include "platform/operation_edge.h"
#include "platform/timing.h"

namespace korvinel::platform {

class VirtualTimer;

/// A clock that moves only while events are dispatched, with its timers and scheduled actions. A whole examination
/// takes a moment of real time and runs identically every time.
class VirtualTime : public Clock, public EventPump {
 public:
  /// `edge`: handlers run behind it; process() throws ProgramEnd once the program has ended.
  explicit VirtualTime(OperationEdge& edge) : edge_(edge) {}

  [[nodiscard]] double seconds() const override { return now_; }
  [[nodiscard]] CalendarTime localTime() const override;
  void process() override;  ///< moves on by the step, or to the next due timer or act, and runs what is due
  void poll() override;     ///< the same with a step of a tenth of a millisecond

  void at(double time, std::function<void()> act);  ///< once, when the clock reaches `time`
  void after(double delay, std::function<void()> act) { at(now_ + delay, std::move(act)); }
  /// Once, at the first step at which the condition holds; also inside an operation that waits.
  void when(std::function<bool()> condition, std::function<void()> act);
  void runFor(double duration);  ///< processes events; returns early when the program ends
  void runUntil(const std::function<bool()>& reached, double atMost = 3600);
  void jump(double duration) { now_ += duration; }  ///< time that an operation takes, no event in it

  std::function<void()> onStep;  ///< called at every step, for anything that runs beside the program
  void setStep(double duration) { step_ = duration; }
  void setDate(const CalendarTime& date) { date_ = date; }  ///< the date and time at second 0

 private:
  friend class VirtualTimer;
  void moveOnBy(double step);
  void runDueActs();
  void fireDueTimers();
  [[nodiscard]] double nextDue(double step) const;

  OperationEdge& edge_;
  double now_ = 36'000;  // ten in the morning, as seconds since midnight
  double step_ = 0.01;
  CalendarTime date_{2026, 11, 21, 0, 0, 0};
  std::multimap<double, std::function<void()>> acts_;
  std::vector<std::pair<std::function<bool()>, std::function<void()>>> conditionalActs_;
  std::vector<VirtualTimer*> timers_;
};

/// An interval timer on the virtual clock. Like a window's timer, it never interrupts its own handler.
class VirtualTimer : public IntervalTimer {
 public:
  explicit VirtualTimer(VirtualTime& time);
  VirtualTimer(const VirtualTimer&) = delete;
  VirtualTimer& operator=(const VirtualTimer&) = delete;

  void setIntervalMs(int interval) override;
  void setEnabled(bool enabled) override;
  [[nodiscard]] int intervalMs() const override { return interval_; }
  [[nodiscard]] bool enabled() const override { return enabled_; }

 private:
  friend class VirtualTime;
  void restart();
  void fire();

  VirtualTime& time_;
  int interval_ = 1000;
  bool enabled_ = false;
  bool firing_ = false;
  double due_ = 0;
};

}  // namespace korvinel::platform
