#include "platform/qt/text_painter.h"

#include <gtest/gtest.h>

#include "unit/platform/qt/painted_surface.h"

namespace korvinel::platform {
namespace {

TEST(SurfacePainter, ATextStandsOnACellOnWhichItsInkCanBeRead) {
  Surface surface("a", 200, 100, 20);
  surface.printAt(20, 30, Colour::white, "Premere Start");
  const QRect cell = placeOf(pictureOf(surface, 200, 100), black);
  EXPECT_EQ(cell.top(), 30);
  EXPECT_EQ(cell.bottom(), 49);
  EXPECT_EQ(cell.left(), 20);
  EXPECT_LT(cell.right(), 200);
}

/// The number of pixels of a colour in a picture with a text, and in the same picture without it.
struct WithAndWithout {
  int with, without;
};

WithAndWithout pixelsOf(QRgb colour, Surface& surface, double x, double y, Colour ink, const char* text) {
  const int without = countOf(pictureOf(surface, 418, 185), colour);
  surface.printAt(x, y, ink, text);
  return {countOf(pictureOf(surface, 418, 185), colour), without};
}

TEST(SurfacePainter, LettersStandOnTheGraphItself) {
  Surface bars("a", 128, 200, 18);
  for (int k = 1; k <= 64; ++k) bars.box(2 * (k - 1) + 1, 200, 2 * (k - 1) + 2, 0, Colour::blue);
  const auto [with, without] = pixelsOf(blue, bars, 60, 8, Colour::black, "Delta=12.5");
  constexpr int lineHeight = 16, letters = 75;  // pixels, about
  EXPECT_GT(without - with, 100);               // the halo
  EXPECT_LT(without - with, lineHeight * letters * 2 / 5);
  Surface ticks("a", 600, 200, 32);
  for (int x = 0; x <= 600; x += 60) ticks.line(x, 200, x, 190, Colour::blue);
  const int before = countOf(pictureOf(ticks, 640, 84), blue);
  ticks.printAt(470, 170, Colour::black, "Syncro 1-2 media= 45.3");
  EXPECT_GT(countOf(pictureOf(ticks, 640, 84), blue), before - 10);
}

TEST(SurfacePainter, LettersCanBeReadOnBarsOfTheirOwnDarkness) {
  Surface bars("a", 128, 200, 18);
  for (int k = 1; k <= 64; ++k) bars.box(2 * (k - 1), 200, 2 * k, 0, Colour::red);
  bars.box(0, 0, 2, 2, Colour::red);
  Surface plain("a", 128, 200, 18);
  for (Surface* each : {&bars, &plain}) each->printAt(60, 80, Colour::black, "IIIIII");
  const QImage onBars = pictureOf(bars, 418, 185), onPlain = pictureOf(plain, 418, 185);
  int letters = 0;
  for (int x = 190; x < 230; ++x) {
    if (qGray(onPlain.pixel(x, 82)) > 128) continue;
    ++letters;
    EXPECT_TRUE(onBars.pixel(x - 2, 82) == white || onBars.pixel(x + 2, 82) == white) << x;
  }
  EXPECT_GT(letters, 3);
}

TEST(SurfacePainter, ATextOnABoxTakesTheBoxForItsGround) {
  Surface surface("a", 200, 100, 20);
  surface.box(10, 10, 190, 40, Colour::yellow);
  const int before = countOf(pictureOf(surface, 418, 185), yellow);
  surface.printAt(12, 15, Colour::black, "Attendere");
  EXPECT_EQ(countOf(pictureOf(surface, 418, 185), white), 418 * 185 - before);
  surface.printAt(12, 15, Colour::white, "Attendere");
  EXPECT_GT(countOf(pictureOf(surface, 418, 185), black), 500);  // white on yellow needs a cell
}

TEST(SurfacePainter, LettersNeverStandOnOtherLetters) {
  Surface surface("a", 200, 100, 20);
  surface.printAt(10, 10, Colour::blue, "MMMMMM");
  surface.printAt(11, 11, Colour::black, "........");
  const QImage picture = pictureOf(surface, 200, 100);
  EXPECT_EQ(countOf(picture.copy(12, 13, 30, 12), blue), 0);
}

TEST(SurfacePainter, LinesOfATextStandFree) {
  Surface surface("Messaggi", 120, 258, 13.5);
  for (int line = 0; line < 10; ++line) surface.print("gpqy");
  const int whole = countOf(pictureOf(surface, 356, 256), black);
  Surface one("Messaggi", 120, 258, 13.5);
  one.print("gpqy");
  EXPECT_EQ(whole, 10 * countOf(pictureOf(one, 356, 256), black));
}

TEST(SurfacePainter, ATextCoversThePointThatGaveItsPlace) {
  for (int place = 1; place < 60; ++place) {
    Surface surface("a", 100, 95, 15);
    surface.point(place, place, Colour::blue);
    surface.print("Delta=16uV");
    EXPECT_EQ(countOf(pictureOf(surface, 133, 117), blue), 0) << place;
  }
}

TEST(SurfacePainter, ATextStaysInsideItsSurface) {
  const std::pair<double, double> places[] = {{90, 5}, {-5, -5}, {5, 95}, {99, 99}};
  for (const auto& [x, y] : places) {
    Surface surface("a", 100, 100, 20);
    surface.printAt(x, y, Colour::white, "Attendere..");
    const QRect cell = placeOf(pictureOf(surface, 100, 100), black);
    EXPECT_TRUE(QRect(0, 0, 100, 100).contains(cell));
    EXPECT_GT(cell.width(), 30) << x;
    EXPECT_GT(cell.height(), 10) << y;
  }
}

TEST(SurfacePainter, ATextTooLongForItsSurfaceIsSetSmaller) {
  const std::string longText(60, 'm');
  Surface surface("a", 300, 100, 20);
  surface.printAt(0, 0, Colour::white, longText);
  const QImage picture = pictureOf(surface, 300, 100);
  EXPECT_EQ(placeOf(picture, black).left(), 0);
  EXPECT_LE(placeOf(picture, black).right(), 299);
  EXPECT_LT(countOf(picture, black), 300 * 20);
}

TEST(SurfacePainter, ATextThatStaysIsSetSmallerAndThenShortened) {
  Surface surface("a", 400, 100, 20);
  surface.keepTextsInPlace();
  surface.setInk(Colour::blue);
  surface.box(0, 0, 200, 100, Colour::yellow);
  surface.printAt(200, 20, Colour::blue, "una riga");
  surface.printAt(200, 60, Colour::blue, std::string(200, 'm'));
  const QImage picture = pictureOf(surface, 400, 100);
  const QRect left(0, 0, 197, 100);                           // left of the letters' halo
  EXPECT_EQ(countOf(picture.copy(left), yellow), 197 * 100);  // nothing moves to the left
  const QRect line = placeOf(picture.copy(200, 0, 200, 50), blue);
  const QRect longLine = placeOf(picture.copy(200, 50, 200, 50), blue);
  EXPECT_GT(line.height(), 8);
  EXPECT_GT(longLine.height(), 3);
  EXPECT_LT(longLine.right(), 200);
}

TEST(SurfacePainter, ALongNameIsPaintedInItsRowsAlone) {
  const Surface surface = linesOfAReport("Maria Immacolata dell'Annunziata Rossi-Bianchi, reparto 3");
  const QImage picture = pictureOf(surface, 1024, 733);
  EXPECT_GT(countOf(picture.copy(750, 65, 274, 13), blue), 50);
  EXPECT_GT(countOf(picture.copy(750, 79, 274, 13), blue), 20);
  EXPECT_EQ(countOf(picture.copy(0, 0, 750, 733), blue), 0);
}

}  // namespace
}  // namespace korvinel::platform
