#include "platform/posix/posix_machine.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <thread>

namespace korvinel::platform {
namespace {

/// The niceness of the calling thread; on Linux each thread has its own.
int niceness() { return getpriority(PRIO_PROCESS, 0); }

/// The niceness after the requests, made in another thread so that the test program keeps its priority.
template <typename Requests>
int nicenessAfter(Requests requests) {
  int result = 0;
  std::thread([&] {
    PosixMachine machine;
    requests(machine);
    result = niceness();
  }).join();
  return result;
}

/// The highest priority that the system grants, as a niceness from 0 down to -`wanted`.
int grantedNiceness(int wanted) {
  int result = 0;
  std::thread([&] {
    for (int steps = wanted; steps > 0; --steps)
      if (setpriority(PRIO_PROCESS, 0, -steps) == 0) break;
    result = niceness();
  }).join();
  return result;
}

TEST(PosixMachine, AHighProcessWithAThreadOneStepAboveIsElevenStepsUpWhereTheSystemAllowsIt) {
  const int raised = nicenessAfter([](PosixMachine& machine) {
    machine.setThreadPriority(1);
    machine.setPriorityClass(128);
  });
  EXPECT_EQ(raised, grantedNiceness(11));
}

TEST(PosixMachine, ANormalClassAsksForNothing) {
  EXPECT_EQ(nicenessAfter([](PosixMachine& machine) { machine.setPriorityClass(32); }), niceness());
}

TEST(PosixMachine, TellsALineOnStandardError) {
  PosixMachine machine;
  testing::internal::CaptureStderr();
  machine.tell("La porta seriale /dev/ttyUSB0 non c'è");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "korvinel: La porta seriale /dev/ttyUSB0 non c'è\n");
}

}  // namespace
}  // namespace korvinel::platform
