#include "app/ground_scale.h"

#include <QPainter>

#include "app/ground_caption.h"
#include "platform/qt/help.h"

namespace korvinel {
namespace {

constexpr double siteLetters = 12;  // of the plan
constexpr double numberLetters = 10;
constexpr int tickLength = 3;  // pixels
constexpr int numberAt = tickLength + 3;

}  // namespace

GroundScale::GroundScale(QWidget* ground, std::span<const guidance::ScaleLabel> labels, Graph graph,
                         const QString& role, const QString& help)
    : QWidget(ground), labels_(labels), graph_(graph) {
  setObjectName(role);
  setAccessibleName(role);
  setToolTip(platform::inLines(help));
}

void GroundScale::showSite(const QString& site) {
  if (site == site_) return;
  site_ = site;
  setAccessibleDescription(site);
  update();
}

double GroundScale::pixelOf(double place) const {
  const double perPlan = height() / (graph_.height + 2 * graph_.margin);
  return (graph_.margin + place * graph_.height / graph_.units) * perPlan;
}

void GroundScale::paintLabel(QPainter& painter, const guidance::ScaleLabel& label) const {
  const double y = pixelOf(label.place);
  const int row = std::min(static_cast<int>(y), height() - 1);
  painter.drawLine(0, row, tickLength - 1, row);
  const QSizeF room(width() - numberAt, painter.fontMetrics().height());
  if (site_.isEmpty())
    return painter.drawText(QRectF(QPointF(numberAt, y - room.height() / 2), room), Qt::AlignLeft | Qt::AlignVCenter,
                            label.text);
  painter.save();
  painter.translate(tickLength + 1, y);
  painter.rotate(-90);
  constexpr double half = 30;  // wider than any number
  painter.drawText(QRectF(-half, 0, 2 * half, room.width()), Qt::AlignCenter, label.text);
  painter.restore();
}

void GroundScale::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setPen(captionInk(true));
  painter.setFont(captionFont(*this, siteLetters, true));
  painter.drawText(rect(), Qt::AlignRight | Qt::AlignTop, site_);
  painter.setPen(captionInk(false));
  painter.setFont(captionFont(*this, numberLetters));
  for (const guidance::ScaleLabel& label : labels_) paintLabel(painter, label);
}

}  // namespace korvinel
