#include "platform/qt/pointer_surface_view.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPolygonF>
#include <QToolTip>
#include <algorithm>
#include <optional>

namespace korvinel::platform {
namespace {

const QColor markColour(13, 92, 171);

void tell(const std::function<void(float)>& handler, float place) {
  if (handler) handler(place);
}

/// The mark's position after a key; none if the key does not move it. "Down" is forward, as in a text.
std::optional<int> placeAfter(int key, int mark, PointerSurfaceView::Steps steps, int last) {
  switch (key) {
    case Qt::Key_Left:
    case Qt::Key_Up: return mark - steps.small;
    case Qt::Key_Right:
    case Qt::Key_Down: return mark + steps.small;
    case Qt::Key_PageUp: return mark - steps.large;
    case Qt::Key_PageDown: return mark + steps.large;
    case Qt::Key_Home: return 0;
    case Qt::Key_End: return last;
    default: return std::nullopt;
  }
}

}  // namespace

PointerSurfaceView::PointerSurfaceView(Surface& surface, const PointerEvents& pointer, Steps steps,
                                       std::function<QString(int place)> describe, QWidget* parent)
    : SurfaceView(surface, parent), pointer_(pointer), steps_(steps), describe_(std::move(describe)) {
  setFocusPolicy(Qt::StrongFocus);
}

double PointerSurfaceView::pixelOf(int place) const { return place * width() / surface().width(); }

float PointerSurfaceView::placeOf(const QMouseEvent& event) const {
  return static_cast<float>(event.position().x() * surface().width() / width());
}

void PointerSurfaceView::mousePressEvent(QMouseEvent* event) {
  pressedByKey_ = false;
  tell(pointer_.onPressed, placeOf(*event));
}

void PointerSurfaceView::mouseMoveEvent(QMouseEvent* event) { tell(pointer_.onMoved, placeOf(*event)); }

void PointerSurfaceView::mouseReleaseEvent(QMouseEvent* event) { tell(pointer_.onReleased, placeOf(*event)); }

void PointerSurfaceView::keyPressEvent(QKeyEvent* event) {
  const int key = event->key();
  if (key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter) return pressOrRelease();
  const auto place = placeAfter(key, mark_, steps_, static_cast<int>(surface().width()));
  if (!place) return SurfaceView::keyPressEvent(event);
  moveMark(*place);
}

void PointerSurfaceView::pressOrRelease() {
  pressedByKey_ = !pressedByKey_;
  tell(pressedByKey_ ? pointer_.onPressed : pointer_.onReleased, static_cast<float>(mark_));
  sayPlace();
}

void PointerSurfaceView::moveMark(int place) {
  mark_ = std::clamp(place, 0, static_cast<int>(surface().width()));
  if (pressedByKey_) tell(pointer_.onMoved, static_cast<float>(mark_));
  sayPlace();
  update();
}

void PointerSurfaceView::sayPlace() {
  const QPoint corner(static_cast<int>(pixelOf(mark_)), height());
  QToolTip::showText(mapToGlobal(corner), describe_(mark_), this);
}

void PointerSurfaceView::focusInEvent(QFocusEvent* event) {
  SurfaceView::focusInEvent(event);
  update();
}

/// A selection begun with the keyboard ends when the focus moves elsewhere, as if a mouse button were released.
void PointerSurfaceView::focusOutEvent(QFocusEvent* event) {
  SurfaceView::focusOutEvent(event);
  if (pressedByKey_) pressOrRelease();
  QToolTip::hideText();
  update();
}

/// The mark is a small triangle at the bottom, under the curve.
void PointerSurfaceView::paintEvent(QPaintEvent* event) {
  SurfaceView::paintEvent(event);
  if (!hasFocus()) return;
  constexpr double extent = 7;
  const QPointF tip(pixelOf(mark_), height() - 1.6 * extent);
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(Qt::white, 1));
  painter.setBrush(markColour);
  painter.drawPolygon(QPolygonF({tip, tip + QPointF(extent, 1.6 * extent), tip + QPointF(-extent, 1.6 * extent)}));
}

}  // namespace korvinel::platform
