#include "display/grid.h"

#include <gtest/gtest.h>

#include "platform/surface.h"

namespace korvinel {
namespace {

using platform::Colour;
using platform::Mark;

TEST(DrawGrid, DotsStandEightUnitsApartFromOneUnitInsideTheEdge) {
  platform::Surface surface("", 20, 18, 5);
  drawGrid(surface, 10, 8);
  const std::pair<double, double> dots[] = {{1, 8},   {9, 8},  {17, 8}, {1, 16}, {9, 16},
                                            {17, 16}, {10, 1}, {10, 9}, {10, 17}};
  std::vector<Mark> expected;
  for (const auto& [x, y] : dots) expected.push_back({Mark::Kind::point, Colour::blue, x, y, x, y});
  EXPECT_EQ(surface.marks(), expected);
}

TEST(DrawGrid, NoDotStandsOnTheFarEdges) {
  platform::Surface surface("", 17, 9, 5);
  drawGrid(surface, 8.5, 4.5);  // the second lines would stand on the edges
  const std::pair<double, double> dots[] = {{1, 4.5}, {9, 4.5}, {8.5, 1}};
  std::vector<Mark> expected;
  for (const auto& [x, y] : dots) expected.push_back({Mark::Kind::point, Colour::blue, x, y, x, y});
  EXPECT_EQ(surface.marks(), expected);
}

}  // namespace
}  // namespace korvinel
