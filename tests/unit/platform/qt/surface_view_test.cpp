#include "platform/qt/surface_view.h"

#include <gtest/gtest.h>

#include <QTest>

#include "unit/platform/qt/painted_surface.h"

namespace korvinel::platform {
namespace {

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
