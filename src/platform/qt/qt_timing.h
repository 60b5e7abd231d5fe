#pragma once

#include <QTimer>

#include "platform/operation_edge.h"
#include "platform/timing.h"

namespace korvinel::platform {

struct QtClock : Clock {
  [[nodiscard]] double seconds() const override;
  [[nodiscard]] CalendarTime localTime() const override;
};

/// A timer of the user-interface thread. It never interrupts its own handler: if it falls due meanwhile, it fires once
/// when the handler has ended.
class QtTimer : public IntervalTimer {
 public:
  QtTimer();
  void setIntervalMs(int interval) override;
  void setEnabled(bool enabled) override;
  [[nodiscard]] int intervalMs() const override { return interval_; }
  [[nodiscard]] bool enabled() const override { return enabled_; }

 private:
  void elapsed();
  void fire();

  QTimer timer_;
  int interval_ = 1000;
  bool enabled_ = false;
  bool firing_ = false;
  bool missed_ = false;
};

/// Dispatches events and sleeps until the next one, at most a few milliseconds: often enough to poll the serial line,
/// with almost no processor time.
class QtEventPump : public EventPump {
 public:
  explicit QtEventPump(const OperationEdge& edge);
  void process() override;
  void poll() override;

 private:
  const OperationEdge& edge_;
  QTimer wakeUp_;
};

}  // namespace korvinel::platform
