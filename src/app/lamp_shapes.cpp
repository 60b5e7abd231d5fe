#include "app/lamp_shapes.h"

#include <QPolygonF>

namespace korvinel {
namespace {

using guidance::SignalState;

QPen whiteLine(const QRectF& square) {
  constexpr double thickness = 0.14;  // of the square
  return {Qt::white, square.width() * thickness, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
}

/// Points in fractions of the square.
QPolygonF within(const QRectF& square, std::initializer_list<QPointF> points) {
  QPolygonF polygon;
  for (const QPointF& point : points)
    polygon << QPointF(square.x() + point.x() * square.width(), square.y() + point.y() * square.height());
  return polygon;
}

void drawLine(QPainter& painter, const QRectF& square, std::initializer_list<QPointF> points) {
  painter.setPen(whiteLine(square));
  painter.drawPolyline(within(square, points));
}

void drawGround(QPainter& painter, const QRectF& square, SignalState state) {
  painter.setPen(Qt::NoPen);
  painter.setBrush(lampColour(state));
  constexpr double roundness = 2;
  switch (state) {
    case SignalState::good: return painter.drawEllipse(square);
    case SignalState::mains:
      return static_cast<void>(painter.drawPolygon(within(square, {{0.5, -0.1}, {1.1, 0.5}, {0.5, 1.1}, {-0.1, 0.5}})));
    case SignalState::movement:
      return static_cast<void>(painter.drawPolygon(within(square, {{0.5, -0.06}, {1.08, 1}, {-0.08, 1}})));
    default: return painter.drawRoundedRect(square, roundness, roundness);
  }
}

}  // namespace

QColor lampColour(SignalState state) {
  switch (state) {
    case SignalState::good: return {46, 125, 50};
    case SignalState::flat: return {55, 71, 79};
    case SignalState::saturated: return {183, 28, 28};
    case SignalState::mains: return {106, 27, 154};
    case SignalState::movement: return {191, 54, 12};
    case SignalState::waiting: break;
  }
  return {95, 107, 113};
}

void drawLampSign(QPainter& painter, const QRectF& square, SignalState state) {
  if (state == SignalState::waiting) {
    constexpr double thickness = 1.6;
    painter.setPen(QPen(lampColour(state), thickness));
    painter.setBrush(Qt::NoBrush);
    return painter.drawEllipse(square.adjusted(thickness, thickness, -thickness, -thickness));
  }
  drawGround(painter, square, state);
  switch (state) {
    case SignalState::good: return drawLine(painter, square, {{0.27, 0.53}, {0.44, 0.7}, {0.74, 0.33}});
    case SignalState::flat: return drawLine(painter, square, {{0.2, 0.5}, {0.8, 0.5}});
    case SignalState::saturated:
      return drawLine(painter, square, {{0.15, 0.78}, {0.3, 0.25}, {0.5, 0.25}, {0.65, 0.78}, {0.85, 0.78}});
    case SignalState::mains:
      return drawLine(painter, square, {{0.2, 0.5}, {0.35, 0.32}, {0.5, 0.5}, {0.65, 0.68}, {0.8, 0.5}});
    default:
      drawLine(painter, square, {{0.5, 0.38}, {0.5, 0.62}});
      drawLine(painter, square, {{0.5, 0.83}, {0.5, 0.835}});
  }
}

void drawHistoryCell(QPainter& painter, const QRect& cell, SignalState state) {
  const QColor colour = lampColour(state);
  const int third = std::max(1, cell.height() / 3);
  const QRect low = cell.adjusted(0, cell.height() - third, 0, 0);
  switch (state) {
    case SignalState::good: return painter.fillRect(low, colour);
    case SignalState::flat: return painter.fillRect(cell.adjusted(0, third, 0, third - cell.height() + 2), colour);
    case SignalState::saturated: return painter.fillRect(cell, colour);
    case SignalState::mains:
      for (int y = cell.top(); y <= cell.bottom(); y += 2) painter.fillRect(cell.left(), y, cell.width(), 1, colour);
      return;
    case SignalState::movement:
      painter.fillRect(cell.adjusted(0, 0, -cell.width() / 2, -third), colour);
      return painter.fillRect(cell.adjusted(cell.width() / 2, third, 0, 0), colour);
    case SignalState::waiting: return painter.fillRect(QRect(low.center().x(), low.bottom(), 1, 1), colour);
  }
}

}  // namespace korvinel
