#include "platform/qt/surface_painter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "unit/platform/qt/painted_surface.h"

namespace korvinel::platform {
namespace {

TEST(SurfacePainter, FillsWithTheSurfacesBackground) {
  EXPECT_EQ(countOf(pictureOf({"a", 10, 10, 1, Colour::darkGrey}, 20, 30), grey), 600);
}

TEST(SurfacePainter, ScalesUserUnitsToThePixelsEitherWay) {
  Surface surface("a", 100, 50, 10);
  surface.box(10, 10, 30, 20, Colour::blue);
  EXPECT_EQ(placeOf(pictureOf(surface, 200, 200), blue), QRect(20, 40, 40, 40));
}

TEST(SurfacePainter, BoxesMayLieBelowWhateverTheOrder) {
  for (const bool below : {false, true}) {
    Surface surface("a", 100, 100, 10);
    if (below) surface.keepBoxesBelow();
    surface.line(20, 0, 20, 100, Colour::blue);
    surface.point(50, 1, Colour::yellow);
    surface.box(0, 1, 100, 2, Colour::white);
    const QImage picture = pictureOf(surface, 100, 100);
    EXPECT_EQ(picture.pixel(20, 1) == blue, below);
    EXPECT_EQ(picture.pixel(50, 1) == yellow, below);
    EXPECT_EQ(picture.pixel(20, 2), blue);
  }
}

TEST(SurfacePainter, TheShadeTintsItsStretchBehindEverything) {
  Surface surface("a", 100, 50, 10);
  surface.line(0, 25, 100, 25, Colour::blue);
  surface.shade(60, 20, Colour::lightRed);
  const QImage picture = pictureOf(surface, 200, 100);
  const QRgb tint = picture.pixel(80, 10);
  EXPECT_EQ(qRed(tint), 255);
  EXPECT_GT(qGreen(tint), 200);
  EXPECT_LT(qGreen(tint), 250);
  EXPECT_EQ(placeOf(picture, tint), QRect(40, 0, 80, 100));
  EXPECT_EQ(countOf(picture, blue), 200);
}

/// Drags back and forth from four places: at every size, no pixel shows that later boxes have dropped earlier ones.
TEST(SurfacePainter, WhatBoxesDropIsMissedInNoPixel) {
  for (const int width : {97, 640, 1013}) {
    Surface surface("a", 600, 200, 10);
    std::vector<QRgb> row(static_cast<std::size_t>(width), white);
    const auto draw = [&](int from, int to, Colour colour, QRgb shown) {
      surface.box(from, 1, to, 2, colour);
      const double scale = width / 600.0;
      const auto first = std::lround(std::min(from, to) * scale);
      const auto last = first + std::max(1L, std::lround(std::abs(to - from) * scale));
      for (long x = first; x < std::min<long>(last, width); ++x) row[static_cast<std::size_t>(x)] = shown;
    };
    for (int i = 0; i < 400; ++i) {
      if (i % 100 == 0) draw(0, 600, Colour::white, white);
      draw(i / 100 * 137, (i * 61) % 600, Colour::blue, blue);
    }
    const QImage picture = pictureOf(surface, width, 200);
    for (int x = 0; x < width; ++x)
      EXPECT_EQ(picture.pixel(x, 1), row[static_cast<std::size_t>(x)]) << width << " " << x;
    EXPECT_LT(surface.marks().size(), 110U);
  }
}

TEST(SurfacePainter, BoxesOfOneHeightCoverTheSameNumberOfPixelsEverywhere) {
  Surface surface("a", 260, 260, 15);
  for (int bar = 0; bar < 64; ++bar) surface.box(0, 258 - 4 * bar, 200, 260 - 4 * bar, Colour::blue);
  const QImage picture = pictureOf(surface, 160, 247);
  std::vector<int> heights;
  for (int y = 0, height = 0; y < picture.height(); ++y) {
    if (picture.pixel(5, y) == blue) ++height;
    if (picture.pixel(5, y) == blue || height == 0) continue;
    heights.push_back(height);
    height = 0;
  }
  EXPECT_EQ(heights, std::vector<int>(63, 2));  // the lowest bar touches the edge, so it is not counted
}

TEST(SurfacePainter, ABoxAndAPointAreNeverLost) {
  Surface surface("a", 1000, 1000, 10);
  surface.box(10, 10, 11, 11, Colour::blue);
  surface.point(900, 900, Colour::yellow);
  const QImage picture = pictureOf(surface, 100, 100);
  EXPECT_EQ(countOf(picture, blue), 1);
  EXPECT_EQ(countOf(picture, yellow), 1);
}

TEST(SurfacePainter, FrameLinesAreWholePixelsInsideTheSurface) {
  Surface surface("a", 258, 258, 30);
  surface.line(0, 0, 258, 0, Colour::blue);
  surface.line(258, 0, 258, 258, Colour::blue);
  for (const int ratio : {1, 2}) {
    const QImage picture = pictureOf(surface, 100, 100, ratio);
    EXPECT_EQ(countOf(picture, blue), ratio * 200 - ratio * ratio) << ratio;
    EXPECT_EQ(placeOf(picture, blue), QRect(0, 0, 100, 100));
  }
}

TEST(SurfacePainter, ATraceIsOneUnbrokenLine) {
  Surface surface("a", 258, 258, 30);
  for (int x = 1; x < 257; ++x) surface.line(x, 128 + x % 7, x + 1, 128 + (x + 1) % 7, Colour::blue);
  const QImage picture = pictureOf(surface, 500, 300);
  for (int x = 4; x < 496; ++x) {
    int painted = 0;
    for (int y = 0; y < 300; ++y) painted += picture.pixel(x, y) == white ? 0 : 1;
    EXPECT_GT(painted, 0) << x;
  }
}

TEST(SurfacePainter, ALineWhollyBeyondTheRightEdgeStandsAtIt) {
  Surface surface("a", 128, 200, 18);
  surface.line(192, 50, 196, 50, Colour::blue);
  const QRect place = placeOf(pictureOf(surface, 256, 200), blue);
  EXPECT_EQ(place, QRect(247, 50, 9, 1));
}

}  // namespace
}  // namespace korvinel::platform
