#include "platform/qt/qt_timing.h"

#include <QElapsedTimer>
#include <QTest>

#include "unit/platform/timing_suite.h"

namespace korvinel::platform {
namespace {

struct QtTiming {
  OperationEdge edge;
  QtClock clock;
  QtEventPump events{edge};
  QtTimer timer;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Qt, EveryTiming, QtTiming);

TEST(QtClock, TellsTheDateOfToday) {
  const QDate today = QDate::currentDate();
  const CalendarTime now = QtClock().localTime();
  EXPECT_LE(std::abs(today.daysTo(QDate(now.year, now.month, now.day))), 1);  // midnight may pass
}

TEST(QtTimer, ANewIntervalInItsHandlerDoesNotInterruptItEither) {
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
  EXPECT_GT(watch.elapsed(), 2);                 // it sleeps
  EXPECT_LT(watch.elapsed(), looks * 10 + 500);  // and wakes by itself
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

}  // namespace
}  // namespace korvinel::platform
