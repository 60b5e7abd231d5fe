#include "platform/qt/surface_view.h"

#include <QMouseEvent>
#include <QPainter>

#include "platform/qt/qt_text.h"
#include "platform/qt/surface_painter.h"

namespace korvinel::platform {
namespace {

constexpr int refreshIntervalMs = 16;

}  // namespace

SurfaceView::SurfaceView(Surface& surface, QWidget* parent) : QWidget(parent), surface_(surface) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  setAccessibleName(toQt(surface.name()));
  refreshTimer_.setSingleShot(true);
  refreshTimer_.setInterval(refreshIntervalMs);
  connect(&refreshTimer_, &QTimer::timeout, this, [this] { refresh(); });
  surface_.onChanged = [this] {
    if (!refreshTimer_.isActive()) refreshTimer_.start();
  };
  refresh();
}

SurfaceView::~SurfaceView() { surface_.onChanged = nullptr; }

void SurfaceView::refresh() {
  QString texts;
  for (const std::string& text : surface_.texts()) texts += (texts.isEmpty() ? "" : "\n") + toQt(text);
  if (texts != accessibleDescription()) setAccessibleDescription(texts);
  update();
  if (onRefreshed) onRefreshed();
}

void SurfaceView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const qreal ratio = devicePixelRatioF();
  painter.scale(1 / ratio, 1 / ratio);
  paintSurface(painter, surface_, QSizeF(size()) * ratio, ratio);
}

void SurfaceView::mousePressEvent(QMouseEvent* event) {
  if (pointer_ != nullptr) tell(pointer_->onPressed, *event);
}

void SurfaceView::mouseMoveEvent(QMouseEvent* event) {
  if (pointer_ != nullptr) tell(pointer_->onMoved, *event);
}

void SurfaceView::mouseReleaseEvent(QMouseEvent* event) {
  if (pointer_ != nullptr) tell(pointer_->onReleased, *event);
}

void SurfaceView::tell(const std::function<void(float)>& handler, const QMouseEvent& event) const {
  if (handler) handler(static_cast<float>(event.position().x() * surface_.width() / width()));
}

}  // namespace korvinel::platform
