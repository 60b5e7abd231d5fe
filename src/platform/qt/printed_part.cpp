#include "platform/qt/printed_part.h"

#include <QVariant>
#include <QWidget>

#include "platform/qt/focus_ring.h"
#include "platform/qt/ghost_text.h"

namespace korvinel::platform {
namespace {

constexpr auto printedPart = "printedPart";

}  // namespace

void printOnly(QWidget& window, QWidget& part) { window.setProperty(printedPart, QVariant::fromValue(&part)); }

QWidget* pageOf(QWidget* window) {
  auto* part = window == nullptr ? nullptr : window->property(printedPart).value<QWidget*>();
  return part != nullptr ? part : window;
}

void showAidsOfTheKeyboard(const QWidget& window, bool shown) {
  for (QWidget* child : window.findChildren<QWidget*>()) {
    if (auto* ring = dynamic_cast<FocusRing*>(child)) ring->setShown(shown);
    if (auto* ghost = dynamic_cast<GhostText*>(child)) ghost->setShown(shown);
  }
}

}  // namespace korvinel::platform
