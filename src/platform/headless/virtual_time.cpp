#include "platform/headless/virtual_time.h"

#include <algorithm>
#include <chrono>

namespace korvinel::platform {

VirtualTimer::VirtualTimer(VirtualTime& time) : time_(time) { time.timers_.push_back(this); }

void VirtualTimer::setIntervalMs(int interval) {
  interval_ = interval;
  restart();
}

void VirtualTimer::setEnabled(bool enabled) {
  if (enabled && !enabled_) restart();
  enabled_ = enabled;
}

void VirtualTimer::restart() { due_ = time_.seconds() + interval_ / 1000.0; }

void VirtualTimer::fire() {
  restart();
  firing_ = true;
  if (onElapsed) onElapsed();
  firing_ = false;
}

CalendarTime VirtualTime::localTime() const {
  using namespace std::chrono;
  const int second = static_cast<int>(now_) % 86'400;
  const sys_days first = year(date_.year) / date_.month / date_.day;
  const year_month_day today(first + days(static_cast<int>(now_) / 86'400));
  return {static_cast<int>(today.year()),
          static_cast<int>(static_cast<unsigned>(today.month())),
          static_cast<int>(static_cast<unsigned>(today.day())),
          second / 3600,
          second / 60 % 60,
          second % 60};
}

void VirtualTime::process() { moveOnBy(step_); }

void VirtualTime::poll() { moveOnBy(0.0001); }

void VirtualTime::moveOnBy(double step) {
  edge_.stopIfEnded();
  now_ = std::max(now_, std::min(now_ + step, nextDue(step)));
  if (onStep) onStep();
  runDueActs();
  fireDueTimers();
  edge_.stopIfEnded();
}

double VirtualTime::nextDue(double step) const {
  double next = acts_.empty() ? now_ + step : acts_.begin()->first;
  for (const VirtualTimer* timer : timers_)
    if (timer->enabled_ && !timer->firing_) next = std::min(next, timer->due_);
  return next;
}

void VirtualTime::runDueActs() {
  while (!acts_.empty() && acts_.begin()->first <= now_) {
    const auto act = std::move(acts_.begin()->second);
    acts_.erase(acts_.begin());
    edge_.run(act);
  }
  for (std::size_t i = 0; i < conditionalActs_.size(); ++i) {
    if (!conditionalActs_[i].first()) continue;
    const auto act = std::move(conditionalActs_[i].second);
    conditionalActs_.erase(conditionalActs_.begin() + static_cast<std::ptrdiff_t>(i--));
    edge_.run(act);
  }
}

void VirtualTime::fireDueTimers() {
  for (VirtualTimer* timer : timers_)
    if (timer->enabled_ && !timer->firing_ && timer->due_ <= now_) timer->fire();
}

void VirtualTime::at(double time, std::function<void()> act) { acts_.emplace(time, std::move(act)); }

void VirtualTime::when(std::function<bool()> condition, std::function<void()> act) {
  conditionalActs_.emplace_back(std::move(condition), std::move(act));
}

void VirtualTime::runFor(double duration) {
  const double end = now_ + duration;
  runUntil([&] { return now_ >= end; }, duration + step_);
}

void VirtualTime::runUntil(const std::function<bool()>& reached, double atMost) {
  const double end = now_ + atMost;
  while (!edge_.ended() && !reached() && now_ < end) edge_.run([this] { process(); });
}

}  // namespace korvinel::platform
