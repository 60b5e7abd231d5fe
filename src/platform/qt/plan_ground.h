#pragma once

#include <vector>

#include "platform/qt/focus_ring.h"
#include "platform/qt/surface_view.h"
#include "platform/rect.h"

namespace korvinel::platform {

/// The background of a window with a plan: shows a surface in the plan's units, and keeps every widget on it at its
/// place in the plan and its letters in proportion, at any window size. A ring shows which widget has the focus.
class PlanGround : public SurfaceView {
 public:
  /// `letterHeight`: of the widgets' letters, in units of the plan.
  PlanGround(Surface& surface, double letterHeight);

  void put(QWidget* widget, const Rect& place);  ///< also moves one that is on it already
  /// A widget in the background's colours under others.
  void putPanel(const Rect& place);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  struct Placed {
    QWidget* widget;
    Rect place;
  };

  void arrange(const Placed& placed) const;

  QSize plan_;
  double letterHeight_;
  std::vector<Placed> placed_;
  FocusRing ring_{this};
};

/// Shows a window with a client area of this size, or filling a screen that is too small for it.
void showFitting(QWidget& window, const QSize& client);

}  // namespace korvinel::platform
