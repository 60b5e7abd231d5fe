#include "app/head_picture.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>

namespace korvinel {
namespace {

const QColor outline(69, 90, 100);
const QColor skin(236, 239, 241);
const QColor frontal(25, 118, 210);
const QColor temporal(0, 121, 107);

/// In a square of 200 x 200 around the head's centre; the nose looks up.
constexpr double extent = 200;

void drawHead(QPainter& painter) {
  painter.setPen(QPen(outline, 2.2));
  painter.setBrush(skin);
  QPainterPath nose;
  nose.moveTo(-14, -80);
  nose.quadTo(-5, -98, 0, -98);
  nose.quadTo(5, -98, 14, -80);
  painter.drawPath(nose);
  for (const int side : {-1, 1}) painter.drawEllipse(QPointF(side * 71, 4), 9, 20);
  painter.drawEllipse(QPointF(0, 0), 70, 84);
}

/// The lines that divide the scalp: from nose to nape and from ear to ear.
void drawMidlines(QPainter& painter) {
  painter.setPen(QPen(QColor(176, 190, 197), 1.2, Qt::DashLine));
  painter.drawLine(QPointF(0, -84), QPointF(0, 84));
  painter.drawLine(QPointF(-70, 0), QPointF(70, 0));
}

void drawSite(QPainter& painter, const QPointF& place, const QColor& colour, const char* name) {
  constexpr double radius = 14.5;
  painter.setPen(QPen(Qt::white, 2));
  painter.setBrush(colour);
  painter.drawEllipse(place, radius, radius);
  painter.setPen(Qt::white);
  painter.drawText(QRectF(place.x() - radius, place.y() - radius, 2 * radius, 2 * radius), Qt::AlignCenter, name);
}

}  // namespace

void paintHead(QPainter& painter, const QRectF& place) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(place.center());
  const double scale = std::min(place.width(), place.height()) / extent;
  painter.scale(scale, scale);
  QFont letters = painter.font();
  letters.setPixelSize(13);
  letters.setBold(true);
  painter.setFont(letters);
  drawHead(painter);
  drawMidlines(painter);
  drawSite(painter, {-24, -52}, frontal, "F1");
  drawSite(painter, {24, -52}, frontal, "F2");
  drawSite(painter, {-48, 38}, temporal, "T5");
  drawSite(painter, {48, 38}, temporal, "T6");
  painter.restore();
}

void HeadPicture::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  paintHead(painter, QRectF(rect()));
}

}  // namespace korvinel
