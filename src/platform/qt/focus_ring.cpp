#include "platform/qt/focus_ring.h"

#include <QApplication>
#include <QEvent>
#include <QPainter>

namespace korvinel::platform {
namespace {

constexpr int thickness = 3;
const QColor outer(255, 255, 255);
const QColor inner(13, 92, 171);

void drawFrame(QPainter& painter, const QRectF& place, const QColor& colour, double width) {
  constexpr double roundness = 3;
  painter.setPen(QPen(colour, width));
  painter.drawRoundedRect(place, roundness, roundness);
}

}  // namespace

FocusRing::FocusRing(QWidget* ground, int distance) : QWidget(ground), distance_(distance) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  hide();
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { moveTo(now); });
}

void FocusRing::setShown(bool shown) {
  shown_ = shown;
  setVisible(shown_ && focused_ != nullptr);
}

void FocusRing::moveTo(QWidget* focused) {
  if (focused_) focused_->removeEventFilter(this);
  focused_ = focused != nullptr && parentWidget()->isAncestorOf(focused) ? focused : nullptr;
  setVisible(shown_ && focused_ != nullptr);
  if (!focused_) return;
  focused_->installEventFilter(this);
  surround();
}

void FocusRing::surround() {
  const QPoint corner = focused_->mapTo(parentWidget(), QPoint(0, 0));
  const int margin = distance_ + thickness;
  setGeometry(QRect(corner, focused_->size()).adjusted(-margin, -margin, margin, margin));
  raise();
}

bool FocusRing::eventFilter(QObject* watched, QEvent* event) {
  if (watched == focused_ && (event->type() == QEvent::Resize || event->type() == QEvent::Move)) surround();
  return false;
}

void FocusRing::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  drawFrame(painter, QRectF(rect()).adjusted(0.75, 0.75, -0.75, -0.75), outer, 1.5);
  drawFrame(painter, QRectF(rect()).adjusted(2.25, 2.25, -2.25, -2.25), inner, 2);
}

}  // namespace korvinel::platform
