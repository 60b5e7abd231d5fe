#include "guidance/window_fitting.h"

#include <gtest/gtest.h>

namespace korvinel::guidance {
namespace {

const std::vector<platform::Rect> twoScreens = {{0, 0, 1366, 728}, {1366, 0, 1920, 1080}};

TEST(FittingPlace, IsTheRememberedOneWhereItIsWholeOnAScreen) {
  for (const WindowPlace place : {WindowPlace{100, 50, 1024, 600, false}, WindowPlace{1400, 20, 1800, 1000, true}})
    EXPECT_EQ(fittingPlace(place, twoScreens), place);
}

TEST(FittingPlace, IsMovedAndMadeSmallerUntilItsButtonsAreOnTheScreen) {
  EXPECT_EQ(fittingPlace({900, 600, 1024, 600}, {twoScreens[0]}), (WindowPlace{326, 90, 1024, 600}));
  EXPECT_EQ(fittingPlace({-300, -40, 1024, 600}, {twoScreens[0]}), (WindowPlace{0, 0, 1024, 600}));
  EXPECT_EQ(fittingPlace({0, 0, 1920, 1000}, {twoScreens[0]}), (WindowPlace{0, 0, 1350, 690}));
}

TEST(FittingPlace, IsOnTheScreenThatHoldsMostOfIt) {
  EXPECT_EQ(fittingPlace({1200, 0, 1000, 600}, twoScreens), (WindowPlace{1366, 0, 1000, 600}));
}

TEST(FittingPlace, IsNoneWhereTheScreenIsGone) {
  EXPECT_EQ(fittingPlace({1400, 20, 1800, 1000}, {twoScreens[0]}), std::nullopt);
  EXPECT_EQ(fittingPlace({0, 0, 100, 100}, {}), std::nullopt);
}

}  // namespace
}  // namespace korvinel::guidance
