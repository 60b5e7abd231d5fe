#include "platform/qt/placed_text.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QHelpEvent>
#include <QTest>
#include <QToolTip>
#include <cmath>

#include "platform/qt/surface_view.h"
#include "unit/platform/qt/painted_surface.h"

namespace korvinel::platform {
namespace {

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

}  // namespace
}  // namespace korvinel::platform
