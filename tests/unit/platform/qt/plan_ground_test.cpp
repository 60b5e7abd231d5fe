#include "platform/qt/plan_ground.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QScreen>
#include <QTest>

namespace korvinel::platform {
namespace {

TEST(PlanGround, KeepsWidgetsAtTheirPlacesInThePlan) {
  Surface surface("a", 200, 100, 10);
  PlanGround ground(surface, 10);
  auto* widget = new QWidget(&ground);
  ground.put(widget, {20, 10, 50, 30});
  struct Case {
    QSize size;
    QRect place;
  };
  const Case cases[] = {
      {{200, 100}, {20, 10, 50, 30}}, {{400, 300}, {40, 30, 100, 90}}, {{100, 100}, {10, 10, 25, 30}}};
  ground.show();
  for (const Case& c : cases) {
    ground.resize(c.size);
    QApplication::processEvents();
    EXPECT_EQ(widget->geometry(), c.place) << c.size.width();
  }
}

TEST(PlanGround, NeighboursInThePlanTouchAtEverySizeAndNeverOverlap) {
  Surface surface("a", 1200, 900, 10);
  PlanGround ground(surface, 16);
  auto* left = new QWidget(&ground);
  auto* right = new QWidget(&ground);
  ground.put(left, {10, 10, 333, 40});
  ground.put(right, {343, 10, 333, 40});
  ground.show();
  for (int width = 700; width < 1900; width += 13) {
    ground.resize(width, 700);
    QApplication::processEvents();
    EXPECT_EQ(left->geometry().right() + 1, right->geometry().left()) << width;
  }
}

TEST(PlanGround, LettersGrowWithTheSmallerScaleButStayReadable) {
  Surface surface("a", 200, 100, 10);
  PlanGround ground(surface, 16);
  ground.show();
  const std::pair<QSize, int> cases[] = {{{200, 100}, 16}, {{400, 100}, 16}, {{400, 200}, 32}, {{50, 25}, 9}};
  for (const auto& [size, letters] : cases) {
    ground.resize(size);
    QApplication::processEvents();
    EXPECT_EQ(ground.font().pixelSize(), letters) << size.width();
  }
}

TEST(ShowFitting, AWindowTakesItsPlansSizeOrFillsASmallScreen) {
  const QSize screen = QApplication::primaryScreen()->availableSize();
  QWidget small;
  showFitting(small, screen / 2);
  EXPECT_EQ(small.size(), screen / 2);
  EXPECT_FALSE(small.isMaximized());
  QWidget large;
  showFitting(large, screen * 2);
  EXPECT_TRUE(large.isMaximized());
}

}  // namespace
}  // namespace korvinel::platform
