#include "platform/qt/surface_view.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QTest>
#include <QToolTip>
#include <algorithm>
#include <cmath>
#include <vector>

#include "platform/qt/placed_text.h"
#include "platform/qt/surface_painter.h"

namespace korvinel::platform {
namespace {

constexpr QRgb white = 0xFFFFFFFF, black = 0xFF000000, blue = 0xFF000080, yellow = 0xFFFFFF00, grey = 0xFF808080;

QImage pictureOf(const Surface& surface, int width, int height, qreal pixelRatio = 1) {
  QImage image(width, height, QImage::Format_RGB32);
  QPainter painter(&image);
  paintSurface(painter, surface, QSizeF(width, height), pixelRatio);
  return image;
}

/// The smallest rectangle that holds every pixel of a colour.
QRect placeOf(const QImage& image, QRgb colour) {
  QRect place;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x)
      if (image.pixel(x, y) == colour) place |= QRect(x, y, 1, 1);
  return place;
}

int countOf(const QImage& image, QRgb colour) {
  int count = 0;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x) count += image.pixel(x, y) == colour ? 1 : 0;
  return count;
}

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

/// Drags to and fro from four places: what the later boxes have dropped is missing in no pixel, whatever the size.
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
  EXPECT_EQ(heights, std::vector<int>(63, 2));  // the lowest bar ends with the surface
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

TEST(SurfacePainter, ATextStandsOnACellOnWhichItsInkCanBeRead) {
  Surface surface("a", 200, 100, 20);
  surface.printAt(20, 30, Colour::white, "Premere Start");
  const QRect cell = placeOf(pictureOf(surface, 200, 100), black);
  EXPECT_EQ(cell.top(), 30);
  EXPECT_EQ(cell.bottom(), 49);
  EXPECT_EQ(cell.left(), 20);
  EXPECT_LT(cell.right(), 200);
}

/// Pixels of a colour in a picture with a text, and in the same picture without it.
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

TEST(SurfacePainter, ALineWhollyBeyondTheRightEdgeStandsAtIt) {
  Surface surface("a", 128, 200, 18);
  surface.line(192, 50, 196, 50, Colour::blue);
  const QRect place = placeOf(pictureOf(surface, 256, 200), blue);
  EXPECT_EQ(place, QRect(247, 50, 9, 1));
}

TEST(SurfacePainter, ATextThatStaysIsSetSmallerAndThenShortened) {
  Surface surface("a", 400, 100, 20);
  surface.keepTextsInPlace();
  surface.setInk(Colour::blue);
  surface.box(0, 0, 200, 100, Colour::yellow);
  surface.printAt(200, 20, Colour::blue, "una riga");
  surface.printAt(200, 60, Colour::blue, std::string(200, 'm'));
  const QImage picture = pictureOf(surface, 400, 100);
  const QRect left(0, 0, 197, 100);                           // up to the letters' halo
  EXPECT_EQ(countOf(picture.copy(left), yellow), 197 * 100);  // nothing slides to the left
  const QRect line = placeOf(picture.copy(200, 0, 200, 50), blue);
  const QRect longLine = placeOf(picture.copy(200, 50, 200, 50), blue);
  EXPECT_GT(line.height(), 8);
  EXPECT_GT(longLine.height(), 3);
  EXPECT_LT(longLine.right(), 200);
}

/// As the report's ground: a line of 18 units each 33.
Surface linesOfAReport(const std::string& name) {
  Surface surface("a", 1200, 900, 18);
  surface.keepTextsInPlace();
  surface.printAt(880, 47, Colour::blue, "File: esame");
  surface.printAt(880, 80, Colour::blue, "Nome: " + name);
  surface.printAt(880, 113, Colour::blue, "Data: 21/11/2026");
  return surface;
}

constexpr QSize reportOpensAt(1024, 733);

PlacedText nameIn(const Surface& surface, const QSize& size) {
  return placedText(surface, surface.marks()[1], QApplication::font(), size);
}

TEST(PlacedText, ALongNameIsWholeInNoMoreThanTwoRowsOfReadableLetters) {
  const std::string name = "Maria Immacolata dell'Annunziata Rossi-Bianchi, reparto 3, sez. B";
  for (const QSize& size : {reportOpensAt, QSize(900, 620), QSize(1920, 1057)}) {
    const Surface surface = linesOfAReport(name);
    const PlacedText shortName = nameIn(linesOfAReport("Rossi"), size), longName = nameIn(surface, size);
    EXPECT_TRUE(longName.whole) << size.width();
    EXPECT_LE(longName.rows.size(), 2) << size.width();
    EXPECT_EQ(longName.rows.join(""), QString::fromStdString("Nome: " + name));
    EXPECT_GE(longName.font.pixelSize(), 0.8 * shortName.font.pixelSize()) << size.width();
    EXPECT_LE(longName.cell.bottom(), std::ceil(113.0 * size.height() / 900)) << "stands on the date";
    EXPECT_LE(longName.cell.right(), size.width());
  }
}

TEST(PlacedText, ANameOfOneWordIsBrokenToo) {
  const PlacedText name = nameIn(linesOfAReport(std::string(50, 'e')), reportOpensAt);
  EXPECT_TRUE(name.whole);
  EXPECT_EQ(name.rows.size(), 2);
}

TEST(PlacedText, AShortNameIsOneRowAsEver) {
  const PlacedText name = nameIn(linesOfAReport("Rossi Anna"), reportOpensAt);
  EXPECT_EQ(name.rows, QStringList("Nome: Rossi Anna"));
  EXPECT_TRUE(name.whole);
}

TEST(PlacedText, ANameBeyondTwoRowsEndsInDotsAndIsToldByTheMouse) {
  const std::string name = "inizio " + std::string(200, 'm') + " fine";
  Surface surface = linesOfAReport(name);
  const PlacedText shown = nameIn(surface, reportOpensAt);
  EXPECT_FALSE(shown.whole);
  EXPECT_EQ(shown.rows.size(), 2);
  SurfaceView view(surface);
  view.resize(reportOpensAt);
  view.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
  const QPoint place = shown.cell.center().toPoint();
  QHelpEvent asked(QEvent::ToolTip, place, view.mapToGlobal(place));
  QApplication::sendEvent(&view, &asked);
  EXPECT_TRUE(QToolTip::text().endsWith("fine"));
  EXPECT_TRUE(view.accessibleDescription().contains(QString::fromStdString(name)));
  QToolTip::hideText();
}

TEST(SurfacePainter, ALongNameIsPaintedInItsRowsAlone) {
  const Surface surface = linesOfAReport("Maria Immacolata dell'Annunziata Rossi-Bianchi, reparto 3");
  const QImage picture = pictureOf(surface, 1024, 733);
  EXPECT_GT(countOf(picture.copy(750, 65, 274, 13), blue), 50);
  EXPECT_GT(countOf(picture.copy(750, 79, 274, 13), blue), 20);
  EXPECT_EQ(countOf(picture.copy(0, 0, 750, 733), blue), 0);
}

TEST(SurfaceView, TellsWhenItHasTakenAChangeOver) {
  Surface surface("a", 100, 20, 10);
  SurfaceView view(surface);
  QString described;
  view.onRefreshed = [&] { described = view.accessibleDescription(); };
  for (int line = 1; line <= 3; ++line) surface.printBelow("riga");
  ASSERT_TRUE(QTest::qWaitFor([&] { return !described.isEmpty(); }));
  EXPECT_EQ(described, "riga\nriga\nriga");
}

TEST(SurfaceView, ItsTextsAreItsAccessibleDescription) {
  Surface surface("Messaggi", 100, 100, 10);
  const SurfaceView view(surface);
  EXPECT_EQ(view.accessibleName(), "Messaggi");
  surface.print("Artefatto!");
  surface.print("Attendere..");
  EXPECT_TRUE(QTest::qWaitFor([&] { return view.accessibleDescription() == "Artefatto!\nAttendere.."; }, 2000));
  surface.clear();
  EXPECT_TRUE(QTest::qWaitFor([&] { return view.accessibleDescription().isEmpty(); }, 2000));
}

/// Counts how often it is painted.
class CountedView : public SurfaceView {
 public:
  using SurfaceView::SurfaceView;
  int paintings = 0;

 protected:
  void paintEvent(QPaintEvent* event) override {
    ++paintings;
    SurfaceView::paintEvent(event);
  }
};

TEST(SurfaceView, ManyChangesInARowArePaintedAtOnce) {
  Surface surface("a", 100, 100, 10);
  CountedView view(surface);
  view.resize(100, 100);
  view.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
  QTest::qWait(50);
  const int before = view.paintings;
  for (int i = 0; i < 1000; ++i) surface.line(0, i % 100, 100, i % 100, Colour::blue);
  EXPECT_TRUE(QTest::qWaitFor([&] { return view.paintings > before; }, 2000));
  QTest::qWait(50);
  EXPECT_EQ(view.paintings, before + 1);
}

TEST(SurfaceView, PaintsAtTheTruePixelsOfADenseScreen) {
  Surface surface("a", 100, 100, 10);
  surface.box(50, 50, 51, 51, Colour::blue);
  SurfaceView view(surface);
  view.resize(100, 100);
  QImage image(200, 200, QImage::Format_RGB32);
  image.setDevicePixelRatio(2);
  view.render(&image);
  EXPECT_EQ(placeOf(image, blue), QRect(100, 100, 2, 2));
}

}  // namespace
}  // namespace korvinel::platform
