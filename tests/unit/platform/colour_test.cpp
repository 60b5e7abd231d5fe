#include "platform/colour.h"

#include <gtest/gtest.h>

#include "values/runtime_error.h"

namespace korvinel::platform {
namespace {

constexpr Rgb black{0, 0, 0}, white{255, 255, 255};

TEST(Palette, HasSixteenColours) {
  EXPECT_EQ(paletteColour(0), Colour::black);
  EXPECT_EQ(paletteColour(14), Colour::yellow);
  EXPECT_EQ(paletteColour(15), Colour::white);
  for (const int index : {-1, 16}) EXPECT_THROW(static_cast<void>(paletteColour(index)), RuntimeError) << index;
}

TEST(Palette, DarkColoursAreHalfOfTheLightOnes) {
  EXPECT_TRUE(rgbOf(Colour::blue) == (Rgb{0, 0, 128}));
  EXPECT_TRUE(rgbOf(Colour::lightRed) == (Rgb{255, 0, 0}));
  EXPECT_TRUE(rgbOf(Colour::darkGrey) == (Rgb{128, 128, 128}));
  EXPECT_TRUE(rgbOf(Colour::lightGrey) == (Rgb{192, 192, 192}));
}

TEST(Contrast, IsThatOfLightToDarkWhicheverComesFirst) {
  EXPECT_NEAR(contrast(black, white), 21.0, 1e-9);
  EXPECT_EQ(contrast(white, black), contrast(black, white));
  EXPECT_EQ(contrast(white, white), 1.0);
  EXPECT_NEAR(contrast({118, 118, 118}, white), 4.54, 0.01);  // the least grey that small print may have
  EXPECT_NEAR(contrast({10, 10, 10}, black), 1.0607, 0.0001);
}

TEST(CellBehind, IsTheGroundItselfWhereTheInkCanBeReadOnIt) {
  EXPECT_TRUE(cellBehind(black, white) == white);
  EXPECT_TRUE(cellBehind(rgbOf(Colour::blue), white) == white);
}

TEST(CellBehind, IsElseBlackOrWhiteAsTheInkCanBeReadBetter) {
  EXPECT_TRUE(cellBehind(rgbOf(Colour::yellow), white) == black);
  EXPECT_TRUE(cellBehind(rgbOf(Colour::blue), black) == white);
  EXPECT_TRUE(cellBehind(white, white) == black);
}

}  // namespace
}  // namespace korvinel::platform
