#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

#include "headless_program.h"

namespace korvinel {
namespace {

using platform::Colour;
using platform::Mark;

struct Strip : HeadlessProgram {
  explicit Strip(int blocks = 57) {
    state.startUp();
    state.intervalSelectable = 1;
    shared.fileBlockCount = blocks;
  }
  void drag(float from, float to) {
    window.stripPointer.onPressed(from);
    window.stripPointer.onMoved(to);
    window.stripPointer.onReleased(to);
  }
};

TEST(IntervalSelection, MapsPositionsToBlocksCoarsely) {
  struct Case {
    float from, to;
    int first, last;
    const char* label;
  };
  const Case cases[] = {
      {0, 30, 1, 10, "Intervallo=30s"}, {0.9F, 30.9F, 1, 10, "Intervallo=30s"}, {5, 32, 1, 10, "Intervallo=30s"},
      {6, 33, 2, 11, "Intervallo=30s"}, {9, 9, 3, 3, "Intervallo=3s"},          {30, 9, 10, 3, "Intervallo=-18s"},
      {12, 9, 4, 3, "Intervallo=0s"},   {100, 599, 33, 57, "Intervallo=75s"},   {171, 171, 57, 57, "Intervallo=3s"},
      {20, 2, 6, 0, "Intervallo=-15s"}, {20, -0.5F, 6, -1, "Intervallo=-18s"}};
  for (const Case& c : cases) {
    Strip strip;
    strip.drag(c.from, c.to);
    EXPECT_EQ(strip.shared.analysisFirstBlock, c.first) << c.from << " " << c.to;
    EXPECT_EQ(strip.shared.analysisLastBlock, c.last) << c.from << " " << c.to;
    EXPECT_EQ(strip.window.dateLabel.text(), c.label) << c.from << " " << c.to;
  }
}

TEST(IntervalSelection, APressBeyondTheDataSelectsEverything) {
  Strip strip;
  strip.drag(172, 100);
  EXPECT_EQ(strip.shared.analysisFirstBlock, 1);
  EXPECT_EQ(strip.shared.analysisLastBlock, 57);
  EXPECT_EQ(strip.window.dateLabel.text(), "Intervallo non valido");
}

TEST(IntervalSelection, DrawsTheBarOverAnErasedOne) {
  Strip strip;
  strip.window.Picture6.clear();
  strip.drag(30, 300);
  const std::vector<Mark> expected = {{Mark::Kind::box, Colour::white, 0, 1, 600, 2},
                                      {Mark::Kind::box, Colour::lightRed, 30, 1, 300, 2},
                                      {Mark::Kind::box, Colour::lightRed, 30, 1, 171, 2}};
  EXPECT_EQ(strip.window.Picture6.marks(), expected);
}

TEST(IntervalSelection, LongerBarsStayWhileDraggingBack) {
  Strip strip;
  strip.window.Picture6.clear();
  strip.window.stripPointer.onPressed(30);
  strip.window.stripPointer.onMoved(90);
  strip.window.stripPointer.onMoved(60);
  EXPECT_EQ(strip.window.Picture6.marks().size(), 3U);
}

TEST(IntervalSelection, TheChosenStretchIsTinted) {
  Strip strip;
  const auto& shade = [&]() -> const platform::Surface::Shade& { return strip.window.Picture6.shade(); };
  strip.drag(30, 300);
  EXPECT_EQ(shade(), (platform::Surface::Shade{30, 171, Colour::lightRed}));
  strip.window.stripPointer.onPressed(60);
  EXPECT_EQ(shade().x1, shade().x2);
  strip.window.stripPointer.onMoved(90);
  strip.window.stripPointer.onMoved(75);
  EXPECT_EQ(shade(), (platform::Surface::Shade{60, 75, Colour::lightRed}));
}

/// Drags back and forth a hundred times, one position at a time.
TEST(IntervalSelection, TheTrendAndTheNotesStayHoweverOftenItIsDragged) {
  Strip strip(200);
  strip.state.noteCount = 2;
  for (const int note : {1, 2}) strip.state.noteTimes[note] = static_cast<float>(60 * note);
  for (int block = 1; block <= 200; ++block) strip.shared.coherenceHistory[1][block] = static_cast<float>(block % 100);
  strip.state.summariseSynchrony();
  const auto& surface = strip.window.Picture6;
  const auto drawn = surface.marks();
  for (int drag = 1; drag <= 100; ++drag) {
    strip.window.stripPointer.onPressed(static_cast<float>(drag));
    for (int x = 0; x <= 600; ++x) strip.window.stripPointer.onMoved(static_cast<float>(x));
    for (int x = 600; x >= 0; --x) strip.window.stripPointer.onMoved(static_cast<float>(x));
    strip.window.stripPointer.onReleased(static_cast<float>(drag + 30));
    EXPECT_LT(surface.marks().size(), drawn.size() + 1'300);
  }
  ASSERT_GE(surface.marks().size(), drawn.size());
  EXPECT_TRUE(std::equal(drawn.begin(), drawn.end(), surface.marks().begin()));
}

TEST(IntervalSelection, MovesAndReleasesCountOnlyAfterAPress) {
  Strip strip;
  strip.shared.analysisFirstBlock = 7;
  strip.window.stripPointer.onMoved(60);
  strip.window.stripPointer.onReleased(90);
  EXPECT_EQ(strip.shared.analysisFirstBlock, 7);
  EXPECT_EQ(strip.state.selectionEndX, 0);
}

TEST(IntervalSelection, NothingHappensWithoutDataInMemory) {
  Strip strip;
  strip.state.intervalSelectable = 0;
  const auto marks = strip.window.Picture6.marks();
  strip.drag(0, 30);
  EXPECT_EQ(strip.shared.analysisLastBlock, 0);
  EXPECT_EQ(strip.window.Picture6.marks(), marks);
  EXPECT_EQ(strip.state.selectionDragging, 0);
}

TEST(IntervalSelection, APositionBeyond16BitsIsAFaultAndChangesNothing) {
  for (const float x : {1e6F, -1e6F, std::numeric_limits<float>::quiet_NaN()}) {
    Strip strip;
    strip.drag(x, x);
    EXPECT_FALSE(strip.host.faults.empty()) << x;
    EXPECT_EQ(strip.state.selectionDragging, 0) << x;
    EXPECT_EQ(strip.shared.analysisLastBlock, 0) << x;
  }
}

TEST(IntervalSelection, AReleaseEndsTheDrag) {
  Strip strip;
  strip.drag(30, 60);
  const auto marks = strip.window.Picture6.marks();
  strip.window.stripPointer.onMoved(90);
  strip.window.stripPointer.onReleased(120);
  EXPECT_EQ(strip.window.Picture6.marks(), marks);
  EXPECT_EQ(strip.shared.analysisLastBlock, 20);
}

TEST(IntervalSelection, AfterAPressBeyondTheDataTheBarIsDrawnAllTheSame) {
  Strip strip;
  strip.window.Picture6.clear();
  strip.window.stripPointer.onPressed(400);
  strip.window.stripPointer.onReleased(300);
  EXPECT_EQ(strip.window.Picture6.marks().back(), (Mark{Mark::Kind::box, Colour::lightRed, 400, 1, 171, 2}));
  EXPECT_EQ(strip.window.Picture6.shade(), (platform::Surface::Shade{400, 171, Colour::lightRed}));
}

}  // namespace
}  // namespace korvinel
