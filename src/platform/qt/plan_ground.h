#pragma once

#include <vector>

#include "platform/qt/focus_ring.h"
#include "platform/qt/surface_view.h"
#include "platform/rect.h"

namespace korvinel::platform {

/// The ground of a window with a plan: shows a surface whose units are the plan's, and keeps every widget that is put
/// on it at its place in the plan and its letters in proportion, whatever size the window has. A ring shows which of
/// them has the keyboard.
class PlanGround : public SurfaceView {
 public:
  /// `letterHeight`: of the widgets' letters, in units of the plan.
  PlanGround(Surface& surface, double letterHeight);

  void put(QWidget* widget, const Rect& place);
  /// A widget of the ground's own colours under other ones.
  void putPanel(const Rect& place);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  struct Placed {
    QWidget* widget;
    Rect place;
  };

  QSize plan_;
  double letterHeight_;
  std::vector<Placed> placed_;
  FocusRing ring_{this};
};

/// Shows a window with a client area of this size, or filling a screen that is too small for it.
void showFitting(QWidget& window, const QSize& client);

}  // namespace korvinel::platform
