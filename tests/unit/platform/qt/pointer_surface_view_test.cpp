#include "platform/qt/pointer_surface_view.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QTest>
#include <string>
#include <vector>

namespace korvinel::platform {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A surface of 600 units on 300 pixels with steps of three units, and the events it has reported.
struct PointerSurface : testing::Test {
  std::vector<std::string> told;
  std::function<void(float)> teller(const std::string& what) {
    return [this, what](float x) { told.push_back(what + " " + std::to_string(static_cast<int>(x))); };
  }
  PointerEvents pointer{teller("press"), teller("move"), teller("release")};
  Surface surface{"a", 600, 200, 32};
  PointerSurfaceView view{surface, pointer, {3, 60}, [](int place) { return QString::number(place); }};

  void SetUp() override {
    view.resize(300, 80);
    view.show();
    view.activateWindow();
    view.setFocus();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&view));
  }
  void type(std::initializer_list<Qt::Key> keys) {
    for (const Qt::Key key : keys) QTest::keyClick(&view, key);
  }
};

TEST_F(PointerSurface, TheMouseIsToldInTheSurfacesUnits) {
  QTest::mousePress(&view, Qt::LeftButton, {}, QPoint(15, 40));
  QTest::mouseMove(&view, QPoint(30, 40));
  QTest::mouseRelease(&view, Qt::LeftButton, {}, QPoint(45, 40));
  EXPECT_EQ(told.front(), "press 30");
  EXPECT_EQ(told.back(), "release 90");
}

TEST_F(PointerSurface, KeysMoveTheMarkWithinTheSurface) {
  const std::pair<Qt::Key, int> cases[] = {{Qt::Key_Left, 0},    {Qt::Key_Right, 3},     {Qt::Key_Down, 6},
                                           {Qt::Key_Up, 3},      {Qt::Key_PageDown, 63}, {Qt::Key_End, 600},
                                           {Qt::Key_Right, 600}, {Qt::Key_PageUp, 540},  {Qt::Key_Home, 0}};
  for (const auto& [key, place] : cases) {
    type({key});
    EXPECT_EQ(view.mark(), place);
  }
  EXPECT_THAT(told, IsEmpty());
}

TEST_F(PointerSurface, SpaceOrEnterPressesAndTheSecondTimeReleases) {
  type({Qt::Key_Right, Qt::Key_Space, Qt::Key_Right, Qt::Key_Right, Qt::Key_Return});
  EXPECT_THAT(told, ElementsAre("press 3", "move 6", "move 9", "release 9"));
}

TEST_F(PointerSurface, WhatTheKeysBeganEndsWhenTheKeyboardGoesElsewhere) {
  type({Qt::Key_Space, Qt::Key_Right});
  view.clearFocus();
  EXPECT_THAT(told, ElementsAre("press 0", "move 3", "release 3"));
}

TEST_F(PointerSurface, TheMouseTakesOverFromTheKeys) {
  type({Qt::Key_Space});
  QTest::mouseClick(&view, Qt::LeftButton, {}, QPoint(15, 40));
  told.clear();
  type({Qt::Key_Right, Qt::Key_Space});
  EXPECT_THAT(told, ElementsAre("press 3"));
}

}  // namespace
}  // namespace korvinel::platform
