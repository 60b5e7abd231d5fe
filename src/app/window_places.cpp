#include "app/window_places.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

#include "guidance/window_fitting.h"
#include "platform/qt/plan_ground.h"

namespace korvinel {
namespace {

std::vector<platform::Rect> freeAreas() {
  std::vector<platform::Rect> areas;
  for (const QScreen* screen : QGuiApplication::screens()) {
    const QRect area = screen->availableGeometry();
    areas.push_back({area.x(), area.y(), area.width(), area.height()});
  }
  return areas;
}

}  // namespace

void showWhereItWas(QWidget& window, const std::optional<guidance::WindowPlace>& remembered, const QSize& client) {
  const auto place = remembered ? guidance::fittingPlace(*remembered, freeAreas()) : std::nullopt;
  if (!place) return platform::showFitting(window, client);
  window.resize(QSize(place->width, place->height).expandedTo(window.minimumSize()));
  window.move(place->x, place->y);
  place->maximised ? window.showMaximized() : window.show();
}

guidance::WindowPlace placeOf(const QWidget& window) {
  const bool usual = !window.isMaximized() && !window.isMinimized();
  const QPoint corner = usual ? window.pos() : window.normalGeometry().topLeft();
  const QSize size = usual ? window.size() : window.normalGeometry().size();
  return {corner.x(), corner.y(), size.width(), size.height(), window.isMaximized()};
}

}  // namespace korvinel
