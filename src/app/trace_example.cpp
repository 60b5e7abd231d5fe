#include "app/trace_example.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>
#include <numbers>

namespace korvinel {
namespace {

double wave(double seconds, double hertz) { return std::sin(2 * std::numbers::pi * hertz * seconds); }

/// Alpha waves that swell and fade, over a little faster activity.
double clean(double seconds) {
  const double swelling = 0.65 + 0.35 * wave(seconds, 1.7);
  return 0.42 * swelling * wave(seconds, 10) + 0.08 * wave(seconds, 23) + 0.05 * wave(seconds + 0.3, 3);
}

double valueOf(TraceExample::Kind kind, double seconds) {
  switch (kind) {
    case TraceExample::Kind::good: return clean(seconds);
    case TraceExample::Kind::flat: return 0;
    case TraceExample::Kind::saturated: return 1.9 * wave(seconds + 0.03, 4.3);
    case TraceExample::Kind::hum: return 0.62 * wave(seconds, 50) + 0.2 * clean(seconds);
    case TraceExample::Kind::movement: break;
  }
  const double apart = (seconds - 0.24) / 0.035;
  return 0.4 * clean(seconds) + 0.95 * std::exp(-apart * apart);
}

constexpr double pictureShare = 0.72;  // of the height; the rest is for the name

}  // namespace

std::vector<double> exampleOf(TraceExample::Kind kind, int count) {
  constexpr double duration = 0.5;
  std::vector<double> values(static_cast<std::size_t>(count));
  for (int place = 0; place < count; ++place)
    values[static_cast<std::size_t>(place)] = std::clamp(valueOf(kind, duration * place / (count - 1)), -1.0, 1.0);
  return values;
}

TraceExample::TraceExample(Kind kind, const QString& name, const QString& meaning, QWidget* parent)
    : QWidget(parent), kind_(kind) {
  setAccessibleName(name);
  setAccessibleDescription(meaning);
  setToolTip(meaning);
}

void TraceExample::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QColor tone = kind_ == Kind::good ? QColor(46, 125, 50) : QColor(198, 40, 40);
  const QRectF picture = QRectF(1, 1, width() - 2, height() * pictureShare - 2);
  painter.setPen(QPen(tone, 2));
  painter.setBrush(QColor(38, 50, 56));
  painter.drawRoundedRect(picture, 4, 4);
  const int count = std::max(2, static_cast<int>(picture.width()) - 6) * 2;
  const std::vector<double> values = exampleOf(kind_, count);
  QPainterPath trace;
  for (int place = 0; place < count; ++place) {
    const QPointF point(picture.left() + 3 + place / 2.0,
                        picture.center().y() - values[static_cast<std::size_t>(place)] * (picture.height() / 2 - 4));
    place == 0 ? trace.moveTo(point) : trace.lineTo(point);
  }
  painter.setPen(QPen(QColor(129, 230, 150), 1.3));
  painter.setBrush(Qt::NoBrush);
  painter.drawPath(trace);
  QFont letters = font();
  letters.setBold(true);
  painter.setFont(letters);
  painter.setPen(tone);
  painter.drawText(QRectF(0, picture.bottom() + 2, width(), height() - picture.bottom() - 2),
                   Qt::AlignHCenter | Qt::AlignTop, accessibleName());
}

}  // namespace korvinel
