#include "app/watchfulness.h"

#include <gtest/gtest.h>

#include <QWidget>

#include "headless_program.h"
#include "platform/wakefulness.h"

namespace korvinel {
namespace {

struct RememberedWakefulness : platform::Wakefulness {
  void hold() override { held = true; }
  void release() override { held = false; }
  bool held = false;
};

struct WatchfulnessTest : testing::Test {
  void end() {
    program.window.Stopd1.press();
    program.host.time.runUntil([&] { return program.state.intervalSelectable == 1; });
    program.host.time.runFor(0.1);
    watch.refresh();
  }

  HeadlessProgram program;
  QWidget window;
  RememberedWakefulness wakefulness;
  int sounds = 0;
  Sounds sound{true, [](bool) {}, [this] { ++sounds; }, [] { return false; }};
  Watchfulness watch{program.state, window, sound, wakefulness};
};

TEST_F(WatchfulnessTest, TheDesktopStaysAwakeFromStartToTheEnd) {
  watch.refresh();
  EXPECT_FALSE(wakefulness.held);
  program.startAcquisition();
  watch.refresh();
  EXPECT_TRUE(wakefulness.held);
  program.acquireBlocks(2);
  watch.refresh();
  EXPECT_TRUE(wakefulness.held);
  end();
  EXPECT_FALSE(wakefulness.held);
  EXPECT_EQ(sounds, 1);  // the first of two
}

TEST_F(WatchfulnessTest, TheIconIsMarkedOnlyWhileItIsRecorded) {
  program.startAcquisition();
  program.acquireBlocks(1);
  watch.refresh();
  const qint64 usual = window.windowIcon().cacheKey();
  program.window.Registra.press();
  program.acquireBlocks(1);
  watch.refresh();
  EXPECT_NE(window.windowIcon().cacheKey(), usual);
  end();
  EXPECT_EQ(window.windowIcon().cacheKey(), usual);
}

}  // namespace
}  // namespace korvinel
