#include "platform/headless/virtual_time.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "unit/platform/timing_suite.h"

namespace korvinel::platform {
namespace {

struct VirtualTiming {
  OperationEdge edge;
  VirtualTime clock{edge};
  VirtualTime& events = clock;
  VirtualTimer timer{clock};
};

INSTANTIATE_TYPED_TEST_SUITE_P(Virtual, EveryTiming, VirtualTiming);

using testing::ElementsAre;

struct VirtualTimeTest : testing::Test, VirtualTiming {
  std::vector<std::string> done;
  std::function<void()> note(const std::string& what) {
    return [this, what] { done.push_back(what); };
  }
};

TEST_F(VirtualTimeTest, MovesOnlyWhileEventsAreProcessed) {
  const double before = clock.seconds();
  EXPECT_EQ(clock.seconds(), before);
  clock.process();
  EXPECT_DOUBLE_EQ(clock.seconds(), before + 0.01);
  clock.poll();
  EXPECT_DOUBLE_EQ(clock.seconds(), before + 0.0101);
  clock.setStep(0.5);
  clock.process();
  EXPECT_DOUBLE_EQ(clock.seconds(), before + 0.5101);
}

TEST_F(VirtualTimeTest, ActsAreRunAtTheirTimeInTheirOrder) {
  const double begin = clock.seconds();
  double at = 0;
  clock.after(2, note("late"));
  clock.at(begin + 1, [&] { at = clock.seconds(); });
  clock.after(1.5, note("early"));
  clock.runFor(3);
  EXPECT_EQ(at, begin + 1);
  EXPECT_THAT(done, ElementsAre("early", "late"));
}

TEST_F(VirtualTimeTest, AConditionIsActedOnOnceAlsoInsideAnOperationThatWaits) {
  bool ready = false;
  clock.when([&] { return ready; }, note("act"));
  clock.after(1, [&] {
    ready = true;
    clock.process();
    done.push_back("waited");
  });
  clock.runFor(3);
  EXPECT_THAT(done, ElementsAre("act", "waited"));
}

TEST_F(VirtualTimeTest, RunsUntilItIsSoOrForAsLongAsItMay) {
  const double begin = clock.seconds();
  clock.runUntil([&] { return clock.seconds() >= begin + 1; });
  EXPECT_NEAR(clock.seconds(), begin + 1, 0.02);
  clock.runUntil([] { return false; }, 2);
  EXPECT_NEAR(clock.seconds(), begin + 3, 0.02);
}

TEST_F(VirtualTimeTest, StopsWithTheProgram) {
  const double begin = clock.seconds();
  clock.after(1, [] { throw ProgramEnd{}; });
  clock.after(2, note("after the end"));
  clock.runFor(3);
  EXPECT_TRUE(edge.ended());
  EXPECT_NEAR(clock.seconds(), begin + 1, 0.02);
  EXPECT_TRUE(done.empty());
}

TEST_F(VirtualTimeTest, AJumpRunsNothingUntilEventsAreProcessed) {
  clock.after(1, note("act"));
  clock.jump(5);
  EXPECT_TRUE(done.empty());
  clock.process();
  EXPECT_THAT(done, ElementsAre("act"));
}

TEST_F(VirtualTimeTest, TheCalendarFollowsTheClockAcrossMidnightAndTheYear) {
  clock.setDate({2026, 12, 31, 0, 0, 0});
  const CalendarTime morning = clock.localTime();
  EXPECT_EQ(morning.hour, 10);
  clock.jump(14 * 3600 + 61);
  const CalendarTime night = clock.localTime();
  EXPECT_EQ(dateText(night), "01/01/2027");
  EXPECT_EQ(night.hour, 0);
  EXPECT_EQ(night.minute, 1);
  EXPECT_EQ(night.second, 1);
}

}  // namespace
}  // namespace korvinel::platform
