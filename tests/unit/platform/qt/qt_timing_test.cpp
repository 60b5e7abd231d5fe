#include "platform/qt/qt_timing.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QTest>

namespace korvinel::platform {
namespace {

TEST(QtClock, GoesForwardAndTellsTheDate) {
  QtClock clock;
  const double before = clock.seconds();
  QTest::qSleep(5);
  EXPECT_GT(clock.seconds(), before);
  const QDate today = QDate::currentDate();
  const CalendarTime now = clock.localTime();
  EXPECT_LE(std::abs(today.daysTo(QDate(now.year, now.month, now.day))), 1);  // midnight may pass
}

TEST(QtTimer, ElapsesAgainAndAgainWhileItIsEnabled) {
  QtTimer timer;
  int count = 0;
  timer.onElapsed = [&] { ++count; };
  timer.setIntervalMs(5);
  QTest::qWait(20);
  EXPECT_EQ(count, 0);
  timer.setEnabled(true);
  EXPECT_TRUE(QTest::qWaitFor([&] { return count >= 3; }, 5000));
  timer.setEnabled(false);
  const int stopped = count;
  QTest::qWait(30);
  EXPECT_EQ(count, stopped);
}

TEST(QtTimer, ItsHandlerMayDisableIt) {
  QtTimer timer;
  int count = 0;
  timer.onElapsed = [&] {
    ++count;
    timer.setEnabled(false);
  };
  timer.setIntervalMs(1);
  timer.setEnabled(true);
  QTest::qWait(50);
  EXPECT_EQ(count, 1);
  EXPECT_FALSE(timer.enabled());
}

TEST(QtTimer, DoesNotInterruptItsHandlerAndMakesUpForWhatFellDue) {
  QtTimer timer;
  int depth = 0, deepest = 0, count = 0;
  timer.onElapsed = [&] {
    deepest = std::max(deepest, ++depth);
    if (++count == 1) {
      timer.setIntervalMs(5);
      QTest::qWait(60);
      timer.setIntervalMs(60'000);
      timer.setIntervalMs(5);
      QTest::qWait(30);
    }
    --depth;
  };
  timer.setIntervalMs(1);
  timer.setEnabled(true);
  EXPECT_TRUE(QTest::qWaitFor([&] { return count >= 2; }, 5000));
  EXPECT_EQ(deepest, 1);
}

TEST(QtEventPump, SleepsButNotLong) {
  const OperationEdge edge;
  QtEventPump pump(edge);
  pump.process();
  QElapsedTimer watch;
  watch.start();
  constexpr int looks = 20;
  for (int i = 0; i < looks; ++i) pump.process();
  EXPECT_GT(watch.elapsed(), 2);                 // it does sleep
  EXPECT_LT(watch.elapsed(), looks * 10 + 500);  // and wakes up by itself
}

TEST(QtEventPump, HandlesWhatIsWaiting) {
  const OperationEdge edge;
  QtEventPump pump(edge);
  bool handled = false;
  QMetaObject::invokeMethod(
      qApp, [&] { handled = true; }, Qt::QueuedConnection);
  for (int i = 0; i < 3 && !handled; ++i) pump.process();
  EXPECT_TRUE(handled);
}

TEST(QtEventPump, AnEndedProgramGoesNoFurther) {
  OperationEdge edge;
  QtEventPump pump(edge);
  edge.run([] { throw ProgramEnd{}; });
  EXPECT_THROW(pump.process(), ProgramEnd);
}

TEST(QtEventPump, AProgramThatEndsMeanwhileGoesNoFurther) {
  OperationEdge edge;
  QtEventPump pump(edge);
  QMetaObject::invokeMethod(
      qApp, [&] { edge.run([] { throw ProgramEnd{}; }); }, Qt::QueuedConnection);
  EXPECT_THROW(for (int i = 0; i < 3; ++i) pump.process(), ProgramEnd);
}

}  // namespace
}  // namespace korvinel::platform
