#include "frame/synchrony_trend.h"

#include <gtest/gtest.h>

#include <limits>

#include "headless_program.h"
#include "signals.h"

namespace korvinel {
namespace {

using platform::Colour;

TEST(TrendScale, HasAMarkEveryMinuteAndThreeDottedGuides) {
  platform::Surface strip{"striscia", 600, 200, 32};
  drawTrendScale(strip);
  EXPECT_EQ(linesIn(strip, Colour::blue), 11U);
  for (int x = 0; x <= 600; x += 60) EXPECT_TRUE(hasLine(strip, x, 200, x, 190, Colour::blue)) << x;
  const std::pair<int, int> guides[] = {{50, 12}, {150, 12}, {100, 6}};
  for (const auto& [y, spacing] : guides)
    for (int x = 0; x <= 600; x += spacing) EXPECT_TRUE(hasPoint(strip, x, y, Colour::blue)) << x << ", " << y;
  EXPECT_EQ(strip.marks().size(), 11U + 51U + 51U + 101U);
}

TEST(Trend, HasASegmentOfThreeUnitsForEachBlockAndRoundsHalvesToEven) {
  platform::Surface strip{"striscia", 600, 200, 32};
  Bounded<float, 202> correlation;
  correlation[1] = 40.5F;
  correlation[2] = -39.5F;
  correlation[3] = 99;
  drawTrend(strip, correlation, 2);
  EXPECT_TRUE(hasLine(strip, 0, 100, 3, 60, Colour::blue));
  EXPECT_TRUE(hasLine(strip, 3, 60, 6, 140, Colour::blue));
  EXPECT_EQ(strip.marks().size(), 2U);
}

TEST(NoteMarks, OnlyANoteOfABlockOnTheStripIsMarked) {
  const std::pair<float, double> marked[] = {{1, 3}, {2.5F, 8}, {7, 21}, {200, 600}};
  for (const auto& [time, x] : marked) {
    HeadlessProgram program;
    program.state.noteCount = 1;
    program.state.noteTimes[1] = time;
    drawNoteMarks(program.state);
    EXPECT_TRUE(hasLine(program.window.Picture6, x, 1, x, 13, Colour::lightRed)) << time;
  }
  for (const float time : {0.0F, 0.9F, -3.0F, 200.1F, 32'767.0F, std::numeric_limits<float>::quiet_NaN()}) {
    HeadlessProgram program;
    program.state.noteCount = 1;
    program.state.noteTimes[1] = time;
    drawNoteMarks(program.state);
    EXPECT_TRUE(program.window.Picture6.marks().empty()) << time;
  }
}

}  // namespace
}  // namespace korvinel
