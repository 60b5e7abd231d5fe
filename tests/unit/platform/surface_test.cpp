#include "platform/surface.h"

#include <gtest/gtest.h>

#include <set>

#include "values/runtime_error.h"

namespace korvinel::platform {
namespace {

Surface paper() { return {"Messaggi", 100, 200, 10}; }

TEST(Surface, PrintingMovesToTheLeftEdgeOfTheNextLine) {
  Surface surface = paper();
  surface.point(2, 20, Colour::white);
  surface.print("prima");
  surface.print("seconda");
  EXPECT_EQ(surface.marks()[1].x1, 2);
  EXPECT_EQ(surface.marks()[1].y1, 20);
  EXPECT_EQ(surface.marks()[2].x1, 0);
  EXPECT_EQ(surface.marks()[2].y1, 30);
}

TEST(Surface, PointsAndLinesMoveThePositionToTheirEnd) {
  Surface surface = paper();
  surface.line(1, 2, 30, 40, Colour::blue);
  surface.print("qui");
  EXPECT_EQ(surface.marks()[1].x1, 30);
  EXPECT_EQ(surface.marks()[1].y1, 40);
}

TEST(Surface, ClearEmptiesAndGoesToTheOrigin) {
  Surface surface = paper();
  surface.setInk(Colour::lightRed);
  surface.line(1, 2, 30, 40, Colour::blue);
  surface.clear();
  EXPECT_TRUE(surface.marks().empty());
  surface.print("qui");
  EXPECT_EQ(surface.marks()[0].x1, 0);
  EXPECT_EQ(surface.marks()[0].y1, 0);
  EXPECT_EQ(surface.marks()[0].colour, Colour::lightRed);
}

TEST(Surface, PrintingInAColourOfItsOwnKeepsTheInk) {
  Surface surface = paper();
  surface.printAt(1, 1, Colour::white, "Artefatto!");
  surface.print("dopo");
  EXPECT_EQ(surface.marks()[0].colour, Colour::white);
  EXPECT_EQ(surface.marks()[1].colour, Colour::black);
}

TEST(Surface, AFullFillEmptiesWhatLiesUnderIt) {
  Surface surface = paper();
  surface.line(1, 2, 30, 40, Colour::blue);
  surface.box(10, 10, 20, 20, Colour::red);
  EXPECT_EQ(surface.marks().size(), 2U);
  surface.box(0, 0, 100, 200, Colour::white);
  EXPECT_EQ(surface.marks().size(), 1U);
}

TEST(Surface, ATextAtThePlaceOfAnEarlierOneReplacesIt) {
  Surface surface = paper();
  surface.printAt(5, 5, Colour::black, "Syncro 1-2=33");
  surface.printAt(5, 5, Colour::black, "Syncro 1-2=34");
  EXPECT_EQ(surface.texts(), std::vector<std::string>{"Syncro 1-2=34"});
}

TEST(Surface, StaysSmallUnderEndlessRepetition) {
  Surface surface = paper();
  surface.printAt(5, 5, Colour::black, "resta");
  for (int i = 0; i < 100'000; ++i) {
    surface.point(i % 90, 50, Colour::blue);
    if (i % 1'000 == 0) surface.printAt(5, 5, Colour::black, "resta");
  }
  EXPECT_LE(surface.marks().size(), Surface::foldingSize);
  EXPECT_TRUE(surface.shows("resta"));
}

TEST(Surface, NothingThatCanBeSeenIsEverDropped) {
  constexpr int side = 150;
  Surface surface("Foglio", side, side, 10);
  surface.printAt(5, 5, Colour::black, "resta");
  for (int round = 1; round <= 3; ++round)
    for (int place = 0; place < side * side; ++place) surface.point(place % side, place / side, Colour::blue);
  std::set<std::pair<double, double>> places;
  for (const Mark& mark : surface.marks())
    if (mark.kind == Mark::Kind::point) places.insert({mark.x1, mark.y1});
  EXPECT_EQ(places.size(), static_cast<std::size_t>(side * side));
  EXPECT_LE(surface.marks().size(), 2U * side * side + Surface::foldingSize);
  EXPECT_TRUE(surface.shows("resta"));
}

TEST(Surface, ABoxDropsTheBoxesThatItHidesAtEverySize) {
  struct Case {
    double x1, x2;
    bool dropped;
  };
  const Case cases[] = {{10, 40, true}, {10, 30, true}, {10, 41, false}, {12, 30, false}, {9, 30, false}};
  for (const auto& [x1, x2, dropped] : cases) {
    Surface surface = paper();
    surface.box(x1, 5, x2, 6, Colour::red);
    surface.box(10, 5, 40, 6, Colour::blue);
    EXPECT_EQ(surface.marks().size(), dropped ? 1U : 2U) << x1 << " " << x2;
    surface.box(0, 5, 100, 6, Colour::white);
    EXPECT_EQ(surface.marks().size(), 1U);
  }
}

TEST(Surface, ABoxLeavesLinesAndPointsAndLowerBoxes) {
  Surface surface = paper();
  surface.line(10, 5, 20, 5, Colour::blue);
  surface.point(12, 5, Colour::blue);
  surface.box(10, 5, 20, 7, Colour::red);
  surface.box(0, 5, 100, 6, Colour::white);
  EXPECT_EQ(surface.marks().size(), 4U);
}

TEST(Surface, HasOneShadeUntilItIsCleared) {
  Surface surface = paper();
  int changes = 0;
  surface.onChanged = [&] { ++changes; };
  surface.shade(10, 40, Colour::lightRed);
  surface.shade(10, 30, Colour::lightRed);
  EXPECT_EQ(surface.shade(), (Surface::Shade{10, 30, Colour::lightRed}));
  EXPECT_TRUE(surface.marks().empty());
  surface.clear();
  EXPECT_EQ(surface.shade(), Surface::Shade{});
  EXPECT_EQ(changes, 3);
}

TEST(Surface, ABoxTakesTheTextsAwayThatItPaintsOver) {
  Surface surface("Foglio", 100, 100, 10);
  surface.printAt(10, 20, Colour::black, "sotto");
  surface.printAt(9, 20, Colour::black, "comincia prima");
  surface.printAt(10, 25, Colour::black, "troppo alto");
  surface.printAt(60, 20, Colour::black, "accanto");
  surface.line(12, 21, 14, 22, Colour::blue);
  surface.box(60, 30, 10, 20, Colour::white);
  EXPECT_EQ(surface.texts(), (std::vector<std::string>{"comincia prima", "troppo alto", "accanto"}));
  EXPECT_EQ(surface.marks().size(), 5U);
}

TEST(Surface, GrowsDownwardOnlyWithTextsPrintedBelow) {
  Surface surface("Foglio", 100, 20, 10);
  for (int line = 1; line <= 2; ++line) surface.printBelow("riga");
  EXPECT_EQ(surface.height(), 20);
  surface.printBelow("riga");
  EXPECT_EQ(surface.height(), 30);
  surface.print("oltre");
  EXPECT_EQ(surface.height(), 30);
  surface.clear();
  EXPECT_EQ(surface.height(), 20);
}

TEST(Surface, TellsItsViewOfEveryChange) {
  Surface surface = paper();
  int changes = 0;
  surface.onChanged = [&] { ++changes; };
  surface.print("a");
  surface.point(1, 1, Colour::red);
  surface.clear();
  EXPECT_EQ(changes, 3);
}

TEST(CellBehind, KeepsTheBackgroundWhereTheInkReadsOnIt) {
  const Rgb white = rgbOf(Colour::white);
  const Rgb grey = rgbOf(Colour::darkGrey);
  EXPECT_EQ(cellBehind(rgbOf(Colour::black), white), white);
  EXPECT_EQ(cellBehind(rgbOf(Colour::lightRed), white), white);
  EXPECT_EQ(cellBehind(rgbOf(Colour::white), grey), grey);
}

TEST(CellBehind, ElseTakesBlackOrWhiteSoThatEveryInkReads) {
  EXPECT_EQ(cellBehind(rgbOf(Colour::white), rgbOf(Colour::white)), rgbOf(Colour::black));
  EXPECT_EQ(cellBehind(rgbOf(Colour::yellow), rgbOf(Colour::white)), rgbOf(Colour::black));
  for (int ink = 0; ink <= 15; ++ink)
    for (int ground = 0; ground <= 15; ++ground) {
      const Rgb inkColour = rgbOf(paletteColour(ink));
      EXPECT_GE(contrast(inkColour, cellBehind(inkColour, rgbOf(paletteColour(ground)))), 3.0)
          << ink << " on " << ground;
    }
}

TEST(PaletteColour, RefusesOtherIndexes) {
  EXPECT_EQ(paletteColour(12), Colour::lightRed);
  EXPECT_THROW(static_cast<void>(paletteColour(16)), RuntimeError);
  EXPECT_THROW(static_cast<void>(paletteColour(-1)), RuntimeError);
}

}  // namespace
}  // namespace korvinel::platform
