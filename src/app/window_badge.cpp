#include "app/window_badge.h"

#include <QPainter>

namespace korvinel {
namespace {

QPixmap ground(const QIcon& usual, int side) {
  QPixmap picture = usual.pixmap(side, side);
  if (!picture.isNull() && picture.width() == side) return picture;
  QPixmap plain(side, side);
  plain.fill(Qt::transparent);
  QPainter painter(&plain);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(2, 119, 189));
  painter.drawRoundedRect(plain.rect(), side / 5.0, side / 5.0);
  painter.drawPixmap((side - picture.width()) / 2, (side - picture.height()) / 2, picture);
  return plain;
}

/// In the corner where desktops expect badges; its white rim separates it from any ground.
void drawDisc(QPixmap& picture) {
  const double side = picture.width();
  const double radius = side * 0.27;
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(Qt::white, side / 16));
  painter.setBrush(QColor(211, 47, 47));
  const double centre = side - radius - side / 32;
  painter.drawEllipse(QPointF(centre, centre), radius, radius);
}

}  // namespace

QIcon iconOfRecording(const QIcon& usual) {
  QIcon icon;
  for (const int side : {16, 24, 32, 48, 64, 128}) {
    QPixmap picture = ground(usual, side);
    drawDisc(picture);
    icon.addPixmap(picture);
  }
  return icon;
}

}  // namespace korvinel
