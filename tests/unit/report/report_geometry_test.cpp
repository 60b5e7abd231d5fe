#include "report/report_geometry.h"

#include <gtest/gtest.h>

#include <tuple>
#include <utility>

namespace korvinel {
namespace {

using platform::Rect;

TEST(ReportGeometry, EverythingStandsInItsPlace) {
  namespace plan = report_geometry;
  const std::pair<Rect, Rect> places[] = {
      {plan::buttonFrame, {12, 810, 1180, 60}},   {plan::checkBoxFrame, {882, 626, 303, 140}},
      {plan::intervalLabel, {882, 774, 303, 26}}, {plan::statusLabel, {12, 874, 1180, 22}},
      {plan::maximumCheck, {894, 634, 279, 28}},  {plan::meanCheck, {894, 664, 279, 28}},
      {plan::scaleLabel, {894, 700, 279, 24}},    {plan::scaleSlider, {894, 728, 279, 28}},
      {plan::exitButton, {22, 820, 224, 40}},     {plan::numbersButton, {256, 820, 224, 40}},
      {plan::printButton, {490, 820, 224, 40}},   {plan::explainButton, {724, 820, 224, 40}},
      {plan::commentButton, {958, 820, 224, 40}}, {plan::scaleLine, {880, 144, 316, 24}}};
  for (const auto& [place, expected] : places)
    EXPECT_EQ(std::tuple(place.x, place.y, place.width, place.height),
              std::tuple(expected.x, expected.y, expected.width, expected.height));
  EXPECT_EQ(std::pair(plan::width, plan::height), std::pair(1200, 900));
}

TEST(ReportGeometry, TheEightPanelsStandInTwoColumns) {
  for (std::size_t i = 0; i < report_geometry::panels.size(); ++i) {
    const Rect& panel = report_geometry::panels[i];
    const int rows[] = {12, 205, 398, 590};
    EXPECT_EQ(std::tuple(panel.x, panel.y, panel.width, panel.height),
              std::tuple(i % 2 == 0 ? 12 : 448, rows[i / 2], 418, 185))
        << i;
  }
}

TEST(ReportGeometry, TheLinesOfTextStand33UnitsApart) {
  namespace plan = report_geometry;
  EXPECT_EQ(std::tuple(plan::textColumn, plan::makerLine, plan::firstLine, plan::lineDistance, plan::frequencyLine),
            std::tuple(880, 10, 47, 33, 780));
}

}  // namespace
}  // namespace korvinel
