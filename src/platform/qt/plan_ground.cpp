#include "platform/qt/plan_ground.h"

#include <QScreen>
#include <algorithm>
#include <cmath>

namespace korvinel::platform {

PlanGround::PlanGround(Surface& surface, double letterHeight)
    : SurfaceView(surface),
      plan_(static_cast<int>(surface.width()), static_cast<int>(surface.height())),
      letterHeight_(letterHeight) {}

void PlanGround::put(QWidget* widget, const Rect& place) {
  std::erase_if(placed_, [&](const Placed& placed) { return placed.widget == widget; });
  placed_.push_back({widget, place});
  arrange(placed_.back());
}

void PlanGround::arrange(const Placed& placed) const {
  const Rect& place = placed.place;
  const auto across = [&](int x) {
    return static_cast<int>(std::lround(x * static_cast<double>(width()) / plan_.width()));
  };
  const auto down = [&](int y) {
    return static_cast<int>(std::lround(y * static_cast<double>(height()) / plan_.height()));
  };
  placed.widget->setGeometry(
      QRect(QPoint(across(place.x), down(place.y)), QPoint(across(place.right()) - 1, down(place.bottom()) - 1)));
}

void PlanGround::putPanel(const Rect& place) {
  auto* panel = new QWidget(this);
  panel->setAutoFillBackground(true);
  put(panel, place);
}

void PlanGround::resizeEvent(QResizeEvent* event) {
  SurfaceView::resizeEvent(event);
  const double scaleX = static_cast<double>(width()) / plan_.width();
  const double scaleY = static_cast<double>(height()) / plan_.height();
  QFont letters = font();
  letters.setPixelSize(std::max(9, static_cast<int>(std::lround(letterHeight_ * std::min(scaleX, scaleY)))));
  setFont(letters);
  for (const Placed& placed : placed_) arrange(placed);
}

void showFitting(QWidget& window, const QSize& client) {
  constexpr QSize frame(16, 38);  // what a window manager usually puts around the client area
  const QSize screenSize = window.screen()->availableSize();
  const QSize needed = client + frame;
  window.resize(client.boundedTo(screenSize));
  if (needed.width() > screenSize.width() || needed.height() > screenSize.height())
    window.showMaximized();
  else
    window.show();
}

}  // namespace korvinel::platform
