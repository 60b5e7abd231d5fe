#include "app/window_badge.h"

#include <gtest/gtest.h>

#include <QImage>

namespace korvinel {
namespace {

QColor colourAt(const QIcon& icon, int side, double x, double y) {
  const QImage picture = icon.pixmap(side, side).toImage();
  return picture.pixelColor(static_cast<int>(x * side), static_cast<int>(y * side));
}

QIcon green() {
  QPixmap picture(128, 128);
  picture.fill(Qt::green);
  return QIcon(picture);
}

TEST(IconOfRecording, HasARedDiscInItsCornerAndTheProgramsIconElsewhere) {
  const QIcon icon = iconOfRecording(green());
  for (const int side : {16, 32, 128}) {
    EXPECT_EQ(colourAt(icon, side, 0.3, 0.3), QColor(Qt::green)) << side;
    const QColor disc = colourAt(icon, side, 0.7, 0.7);
    EXPECT_GT(disc.red(), 190) << side;
    EXPECT_LT(disc.green(), 90) << side;
  }
}

TEST(IconOfRecording, WithoutAnIconThereIsAPlainGround) {
  EXPECT_GT(colourAt(iconOfRecording(QIcon()), 48, 0.3, 0.3).blue(), 150);
  EXPECT_GT(colourAt(iconOfRecording(QIcon()), 48, 0.7, 0.7).red(), 190);
}

}  // namespace
}  // namespace korvinel
