#include "platform/qt/qt_timing.h"

#include <QCoreApplication>
#include <QDateTime>
#include <chrono>

namespace korvinel::platform {
namespace {

constexpr int longestSleepMs = 10;

}  // namespace

double QtClock::seconds() const {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

CalendarTime QtClock::localTime() const {
  const QDateTime now = QDateTime::currentDateTime();
  const QDate date = now.date();
  const QTime time = now.time();
  return {date.year(), date.month(), date.day(), time.hour(), time.minute(), time.second()};
}

QtTimer::QtTimer() {
  timer_.setTimerType(Qt::PreciseTimer);
  timer_.setSingleShot(true);
  QObject::connect(&timer_, &QTimer::timeout, [this] { elapsed(); });
}

void QtTimer::setIntervalMs(int interval) {
  interval_ = interval;
  missed_ = false;
  if (enabled_) timer_.start(interval_);
}

void QtTimer::setEnabled(bool enabled) {
  if (enabled == enabled_) return;
  enabled_ = enabled;
  missed_ = false;
  if (enabled)
    timer_.start(interval_);
  else
    timer_.stop();
}

void QtTimer::elapsed() {
  if (firing_) {
    missed_ = true;
    return;
  }
  fire();
}

void QtTimer::fire() {
  timer_.start(interval_);
  firing_ = true;
  if (onElapsed) onElapsed();
  firing_ = false;
  if (missed_ && enabled_) timer_.start(0);
  missed_ = false;
}

QtEventPump::QtEventPump(const OperationEdge& edge) : edge_(edge) {
  wakeUp_.setTimerType(Qt::PreciseTimer);
  wakeUp_.setSingleShot(true);
  wakeUp_.setInterval(longestSleepMs);
}

void QtEventPump::process() {
  edge_.stopIfEnded();
  wakeUp_.start();
  QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
  edge_.stopIfEnded();
}

void QtEventPump::poll() {
  edge_.stopIfEnded();
  QCoreApplication::processEvents(QEventLoop::AllEvents);
  edge_.stopIfEnded();
}

}  // namespace korvinel::platform
