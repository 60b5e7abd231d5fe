#pragma once

#include "platform/qt/surface_view.h"

namespace korvinel::platform {

/// A surface on which the user selects positions along its width, with the mouse or the keyboard. The arrow keys move a
/// mark by a step, Page Up and Page Down back and forward by a large step, Home and End to the edges; Space or Enter
/// acts at the mark like pressing the mouse button, and the second time like releasing it.
class PointerSurfaceView : public SurfaceView {
 public:
  struct Steps {
    int small, large;  ///< in the surface's units
  };

  /// `pointer` receives all events, at positions in the surface's units, and must outlive the view. `describe`: a
  /// position in words, shown beside the mark.
  PointerSurfaceView(Surface& surface, const PointerEvents& pointer, Steps steps,
                     std::function<QString(int place)> describe, QWidget* parent = nullptr);

  int mark() const { return mark_; }  ///< the keyboard mark's position, in the surface's units

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void pressOrRelease();
  void moveMark(int place);
  void sayPlace();
  double pixelOf(int place) const;
  float placeOf(const QMouseEvent& event) const;

  const PointerEvents& pointer_;
  Steps steps_;
  std::function<QString(int place)> describe_;
  int mark_ = 0;
  bool pressedByKey_ = false;
};

}  // namespace korvinel::platform
