#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "platform/operation_edge.h"
#include "platform/timing.h"

/// What all clocks, timers and event pumps must have in common: the toolkit's, and the virtual ones that other tests
/// use. A kind of timing has the members `edge`, `clock`, `events` and `timer`.
namespace korvinel::platform {

template <typename Kind>
struct EveryTiming : testing::Test, Kind {
  int elapsed = 0;
  void count() {
    this->timer.onElapsed = [this] { ++elapsed; };
  }
  /// Processes events until the condition holds, at most five seconds of the clock.
  bool comesTrue(const std::function<bool()>& condition) {
    const double end = this->clock.seconds() + 5;
    while (!condition() && this->clock.seconds() < end) this->events.process();
    return condition();
  }
  void processFor(double seconds) {
    const double end = this->clock.seconds() + seconds;
    while (this->clock.seconds() < end) this->events.process();
  }
};

TYPED_TEST_SUITE_P(EveryTiming);

TYPED_TEST_P(EveryTiming, TheClockGoesForwardAndTellsTheDate) {
  const double before = this->clock.seconds();
  this->processFor(0.02);
  EXPECT_GE(this->clock.seconds(), before + 0.02);
  const CalendarTime now = this->clock.localTime();
  EXPECT_GE(now.year, 2020);
  EXPECT_TRUE(now.month >= 1 && now.month <= 12 && now.day >= 1 && now.day <= 31);
  EXPECT_TRUE(now.hour >= 0 && now.hour <= 23 && now.minute >= 0 && now.minute <= 59 && now.second <= 60);
}

TYPED_TEST_P(EveryTiming, ATimerElapsesAgainAndAgainWhileItIsEnabled) {
  this->count();
  this->timer.setIntervalMs(5);
  EXPECT_EQ(this->timer.intervalMs(), 5);
  EXPECT_FALSE(this->timer.enabled());
  this->processFor(0.03);
  EXPECT_EQ(this->elapsed, 0);
  this->timer.setEnabled(true);
  EXPECT_TRUE(this->timer.enabled());
  EXPECT_TRUE(this->comesTrue([this] { return this->elapsed >= 3; }));
  this->timer.setEnabled(false);
  const int stopped = this->elapsed;
  this->processFor(0.03);
  EXPECT_EQ(this->elapsed, stopped);
}

TYPED_TEST_P(EveryTiming, ATimerWaitsAWholeIntervalFromItsEnablingAndFromANewInterval) {
  this->count();
  this->timer.setIntervalMs(60);
  for (const bool restarted : {false, true}) {
    this->elapsed = 0;
    this->timer.setEnabled(true);
    if (restarted) {
      this->processFor(0.02);
      this->timer.setIntervalMs(60);
    }
    const double begin = this->clock.seconds();
    EXPECT_TRUE(this->comesTrue([this] { return this->elapsed > 0; }));
    EXPECT_GE(this->clock.seconds() - begin, 0.058);
    this->timer.setEnabled(false);
  }
}

TYPED_TEST_P(EveryTiming, EnablingARunningTimerDoesNotRestartIt) {
  this->count();
  this->timer.setIntervalMs(50);
  this->timer.setEnabled(true);
  EXPECT_TRUE(this->comesTrue([this] {
    this->timer.setEnabled(true);  // far more often than every 50 milliseconds
    return this->elapsed > 0;
  }));
}

TYPED_TEST_P(EveryTiming, AHandlerMayDisableItsTimer) {
  this->timer.onElapsed = [this] {
    ++this->elapsed;
    this->processFor(0.01);  // it falls due meanwhile
    this->timer.setEnabled(false);
  };
  this->timer.setIntervalMs(1);
  this->timer.setEnabled(true);
  EXPECT_TRUE(this->comesTrue([this] { return this->elapsed > 0; }));
  this->processFor(0.03);
  EXPECT_EQ(this->elapsed, 1);
  EXPECT_FALSE(this->timer.enabled());
}

TYPED_TEST_P(EveryTiming, ATimerNeverInterruptsItsHandlerAndMakesUpOnceForWhatFellDue) {
  int depth = 0, deepest = 0;
  double times[3] = {};
  this->timer.onElapsed = [&] {
    deepest = std::max(deepest, ++depth);
    if (this->elapsed < 3) times[this->elapsed] = this->clock.seconds();
    if (++this->elapsed == 1) this->processFor(0.15);
    --depth;
  };
  this->timer.setIntervalMs(40);
  this->timer.setEnabled(true);
  EXPECT_TRUE(this->comesTrue([this] { return this->elapsed >= 3; }));
  EXPECT_EQ(deepest, 1);
  EXPECT_GE(times[1] - times[0], 0.15);
  EXPECT_GE(times[2] - times[1], 0.038) << "what had fallen due several times is made up for once";
}

TYPED_TEST_P(EveryTiming, PollingDispatchesWhatIsDue) {
  this->count();
  this->timer.setIntervalMs(1);
  this->timer.setEnabled(true);
  const double end = this->clock.seconds() + 5;
  while (this->elapsed == 0 && this->clock.seconds() < end) this->events.poll();
  EXPECT_GT(this->elapsed, 0);
}

TYPED_TEST_P(EveryTiming, NoEventIsDispatchedOnceTheProgramHasEnded) {
  this->count();
  this->timer.setIntervalMs(1);
  this->timer.setEnabled(true);
  this->edge.run([] { throw ProgramEnd{}; });
  EXPECT_THROW(this->events.process(), ProgramEnd);
  EXPECT_THROW(this->events.poll(), ProgramEnd);
  EXPECT_EQ(this->elapsed, 0);
}

TYPED_TEST_P(EveryTiming, AProgramThatEndsInAHandlerEndsTheOperationThatWaits) {
  this->timer.onElapsed = [this] { this->edge.run([] { throw ProgramEnd{}; }); };
  this->timer.setIntervalMs(1);
  this->timer.setEnabled(true);
  EXPECT_THROW(this->processFor(5), ProgramEnd);
}

REGISTER_TYPED_TEST_SUITE_P(EveryTiming, TheClockGoesForwardAndTellsTheDate, ATimerElapsesAgainAndAgainWhileItIsEnabled,
                            ATimerWaitsAWholeIntervalFromItsEnablingAndFromANewInterval,
                            EnablingARunningTimerDoesNotRestartIt, AHandlerMayDisableItsTimer,
                            ATimerNeverInterruptsItsHandlerAndMakesUpOnceForWhatFellDue, PollingDispatchesWhatIsDue,
                            NoEventIsDispatchedOnceTheProgramHasEnded,
                            AProgramThatEndsInAHandlerEndsTheOperationThatWaits);

}  // namespace korvinel::platform
