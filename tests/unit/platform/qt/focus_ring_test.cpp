#include "platform/qt/focus_ring.h"

#include <gtest/gtest.h>

#include <QPushButton>
#include <QTest>
#include <QWindow>

namespace korvinel::platform {
namespace {

struct RingInAWindow : testing::Test {
  QWidget window;
  QPushButton first{"uno", &window}, second{"due", &window};
  FocusRing ring{&window, 2};

  void SetUp() override {
    window.resize(300, 200);
    first.setGeometry(20, 20, 80, 30);
    second.setGeometry(150, 100, 80, 30);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  }
};

TEST_F(RingInAWindow, SurroundsTheWidgetWithTheFocusAtItsDistance) {
  first.setFocus();
  EXPECT_TRUE(ring.isVisible());
  EXPECT_EQ(ring.geometry(), QRect(15, 15, 90, 40));
  second.setFocus();
  EXPECT_EQ(ring.geometry(), QRect(145, 95, 90, 40));
}

TEST_F(RingInAWindow, GoesAlongWhenItsWidgetMovesOrGrows) {
  first.setFocus();
  first.setGeometry(40, 50, 100, 30);
  EXPECT_EQ(ring.geometry(), QRect(35, 45, 110, 40));
  second.move(0, 0);
  EXPECT_EQ(ring.geometry(), QRect(35, 45, 110, 40));
}

TEST_F(RingInAWindow, IsGoneWithTheFocus) {
  first.setFocus();
  first.clearFocus();
  EXPECT_FALSE(ring.isVisible());
}

TEST_F(RingInAWindow, StaysAwayWhileItIsNotToBeShown) {
  first.setFocus();
  ring.setShown(false);
  EXPECT_FALSE(ring.isVisible());
  second.setFocus();
  EXPECT_FALSE(ring.isVisible());
  ring.setShown(true);
  EXPECT_TRUE(ring.isVisible());
  EXPECT_EQ(ring.geometry(), QRect(145, 95, 90, 40));
}

TEST_F(RingInAWindow, LetsTheMouseThrough) {
  int presses = 0;
  QObject::connect(&first, &QPushButton::clicked, [&] { ++presses; });
  first.setFocus();
  QTest::mouseClick(window.windowHandle(), Qt::LeftButton, Qt::NoModifier, first.geometry().center());
  EXPECT_EQ(presses, 1);
}

}  // namespace
}  // namespace korvinel::platform
