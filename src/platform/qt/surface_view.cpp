#include "platform/qt/surface_view.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

#include "platform/qt/help.h"
#include "platform/qt/placed_text.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/surface_painter.h"

namespace korvinel::platform {
namespace {

constexpr int refreshIntervalMs = 16;

}  // namespace

SurfaceView::SurfaceView(Surface& surface, QWidget* parent) : QWidget(parent), surface_(surface) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  setObjectName(toQt(surface.name()));
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

QString SurfaceView::longTextAt(const QPoint& place) const {
  if (!surface_.textsStay()) return {};
  for (const Mark& mark : surface_.marks()) {
    if (mark.kind != Mark::Kind::text) continue;
    const PlacedText text = placedText(surface_, mark, font(), size());
    if ((text.rows.size() > 1 || !text.whole) && text.cell.contains(place)) return toQt(mark.text);
  }
  return {};
}

/// The widget has no tool tip of its own: without printed texts, a screen reader would read it as the widget's text.
bool SurfaceView::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QWidget::event(event);
  const auto& asked = *static_cast<const QHelpEvent*>(event);
  const QString text = longTextAt(asked.pos());
  if (text.isEmpty() && whatsThis().isEmpty()) return QWidget::event(event);
  QToolTip::showText(asked.globalPos(), inLines(text.isEmpty() ? whatsThis() : text), this);
  return true;
}

void SurfaceView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const qreal ratio = devicePixelRatioF();
  painter.scale(1 / ratio, 1 / ratio);
  paintSurface(painter, surface_, QSizeF(size()) * ratio, ratio);
}

}  // namespace korvinel::platform
