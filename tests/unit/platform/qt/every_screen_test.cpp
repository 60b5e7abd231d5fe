#include <gtest/gtest.h>

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <cmath>

#include "platform/page/page_writer.h"
#include "platform/qt/surface_view.h"
#include "unit/platform/qt/painted_surface.h"

/// What a surface must look like wherever it is shown: in the window, and on a page as a picture, as a drawing and in
/// print.
namespace korvinel::platform {
namespace {

constexpr int width = 100, height = 50;  // of the surface, in its units

QImage inTheWindow(Surface& surface) {
  SurfaceView view(surface);
  view.resize(4 * width, 4 * height);
  QImage image(view.size(), QImage::Format_RGB32);
  view.render(&image);
  return image;
}

std::string page(const Surface& surface, PageFormat format) {
  return pageBytes(Page{"Esame", &surface, height, {}}, format);
}

QImage asPicture(Surface& surface) {
  return QImage::fromData(QByteArray::fromStdString(page(surface, PageFormat::png)));
}

/// As another program shows the file.
QImage shownBy(const QString& program, const QStringList& options, const std::string& bytes) {
  const QTemporaryDir folder;
  QFile file(folder.filePath("page"));
  EXPECT_TRUE(file.open(QIODevice::WriteOnly));
  file.write(QByteArray::fromStdString(bytes));
  file.close();
  QProcess process;
  process.setWorkingDirectory(folder.path());
  process.start(program, options);
  EXPECT_TRUE(process.waitForFinished()) << program.toStdString() << ": " << process.errorString().toStdString();
  return QImage(folder.filePath("page.png"));
}

QImage asDrawing(Surface& surface) {
  return shownBy("rsvg-convert", {"--zoom", "2", "-o", "page.png", "page"}, page(surface, PageFormat::svg));
}

QImage inPrint(Surface& surface) {
  return shownBy("pdftoppm", {"-r", "100", "-png", "-singlefile", "page", "page"}, page(surface, PageFormat::pdf));
}

struct Screen {
  const char* name;
  QImage (*show)(Surface& surface);
};

/// The surface on one screen, by its own units. The paper around it is white.
class Shown {
 public:
  Shown(Surface& surface, const Screen& screen) {
    const QImage whole = screen.show(surface).convertToFormat(QImage::Format_RGB32);
    QRect place;
    for (int y = 0; y < whole.height(); ++y)
      for (int x = 0; x < whole.width(); ++x)
        if (whole.pixel(x, y) != white) place |= QRect(x, y, 1, 1);
    image_ = whole.copy(place);
  }

  [[nodiscard]] QRgb at(double x, double y) const {
    return image_.pixel(std::min(static_cast<int>(x * scale()), image_.width() - 1),
                        std::min(static_cast<int>(y * scale()), image_.height() - 1));
  }

  /// Whether any pixel within a unit of the place is darker than the ground.
  [[nodiscard]] bool inkNear(double x, double y) const {
    for (double dy = -1; dy <= 1; dy += 0.25)
      for (double dx = -1; dx <= 1; dx += 0.25)
        if (qGreen(at(x + dx, y + dy)) < 0x60) return true;
    return false;
  }

  /// The place of everything darker than the ground, in units.
  [[nodiscard]] QRectF ink() const {
    QRect place;
    for (int y = 0; y < image_.height(); ++y)
      for (int x = 0; x < image_.width(); ++x)
        if (qGreen(image_.pixel(x, y)) < 0x60) place |= QRect(x, y, 1, 1);
    return {place.x() / scale(), place.y() / scale(), place.width() / scale(), place.height() / scale()};
  }

  [[nodiscard]] double widthForHeight() const { return static_cast<double>(image_.width()) / image_.height(); }

 private:
  [[nodiscard]] double scale() const { return image_.width() / static_cast<double>(width); }

  QImage image_;
};

class EveryScreen : public testing::TestWithParam<Screen> {
 protected:
  [[nodiscard]] Shown shown() { return {surface, GetParam()}; }

  Surface surface{"Grafico", width, height, 10, Colour::darkGrey};
};

INSTANTIATE_TEST_SUITE_P(Shown, EveryScreen,
                         testing::Values(Screen{"InTheWindow", inTheWindow}, Screen{"AsPicture", asPicture},
                                         Screen{"AsDrawing", asDrawing}, Screen{"InPrint", inPrint}),
                         [](const auto& screen) { return screen.param.name; });

TEST_P(EveryScreen, FillsTheWholeExtentWithTheBackground) {
  const Shown picture = shown();
  EXPECT_NEAR(picture.widthForHeight(), 2, 0.02);
  for (const double x : {1.0, 50.0, 99.0})
    for (const double y : {1.0, 25.0, 49.0}) EXPECT_EQ(picture.at(x, y), grey) << x << ", " << y;
}

TEST_P(EveryScreen, FillsABoxFromEdgeToEdge) {
  surface.box(20, 10, 60, 30, Colour::blue);
  const Shown picture = shown();
  for (const double x : {21.0, 40.0, 59.0})
    for (const double y : {11.0, 20.0, 29.0}) EXPECT_EQ(picture.at(x, y), blue) << x << ", " << y;
  for (const auto& [x, y] : {std::pair(18.0, 20.0), {62.0, 20.0}, {40.0, 8.0}, {40.0, 32.0}})
    EXPECT_EQ(picture.at(x, y), grey) << x << ", " << y;
}

TEST_P(EveryScreen, DrawsALineAlongItsWholeLength) {
  surface.line(10, 40, 90, 8, Colour::black);
  const Shown picture = shown();
  for (double x = 10; x <= 90; x += 5) {
    const double y = 40 - (x - 10) * 0.4;
    EXPECT_TRUE(picture.inkNear(x, y)) << x;
    EXPECT_FALSE(picture.inkNear(x, y - 6)) << x;
    EXPECT_FALSE(picture.inkNear(x, y + 6)) << x;
  }
}

TEST_P(EveryScreen, ALaterBoxCoversAnEarlierOne) {
  surface.box(10, 10, 50, 40, Colour::blue);
  surface.box(30, 20, 90, 30, Colour::yellow);
  const Shown picture = shown();
  EXPECT_EQ(picture.at(20, 25), blue);
  EXPECT_EQ(picture.at(40, 25), yellow);
  EXPECT_EQ(picture.at(40, 35), blue);
}

TEST_P(EveryScreen, AShadeLiesBehindWhatIsDrawn) {
  surface.box(20, 20, 80, 30, Colour::blue);
  surface.shade(40, 60, Colour::lightRed);
  const Shown picture = shown();
  EXPECT_EQ(picture.at(50, 25), blue);
  EXPECT_EQ(picture.at(30, 10), grey);
  EXPECT_GT(qRed(picture.at(50, 10)), 0x80);
}

TEST_P(EveryScreen, ATextStartsAtItsPlaceAndRunsToTheRight) {
  surface.printAt(20, 20, Colour::black, "MMMM");
  const QRectF ink = shown().ink();
  EXPECT_NEAR(ink.left(), 20, 3);
  EXPECT_GT(ink.width(), 15);
  EXPECT_GT(ink.top(), 19);
  EXPECT_LT(ink.bottom(), 32);
}

TEST_P(EveryScreen, NothingIsShownBeyondTheExtent) {
  surface.box(-30, -30, 130, 10, Colour::blue);
  surface.line(50, 25, 50, 400, Colour::blue);
  const Shown picture = shown();
  EXPECT_NEAR(picture.widthForHeight(), 2, 0.02);
  EXPECT_EQ(picture.at(1, 1), blue);
  EXPECT_EQ(picture.at(50, 12), grey);
}

}  // namespace
}  // namespace korvinel::platform
