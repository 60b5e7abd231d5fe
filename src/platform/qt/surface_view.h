#pragma once

#include <QTimer>
#include <QWidget>
#include <functional>

#include "platform/controls.h"
#include "platform/surface.h"

namespace korvinel::platform {

/// Shows a surface at the true pixels of its widget; many changes in a row are painted at once. Its texts are the
/// widget's accessible description, a line each. The surface must outlive it.
class SurfaceView : public QWidget {
 public:
  explicit SurfaceView(Surface& surface, QWidget* parent = nullptr);
  ~SurfaceView() override;
  SurfaceView(const SurfaceView&) = delete;
  SurfaceView& operator=(const SurfaceView&) = delete;

  std::function<void()> onRefreshed;  ///< called after every change of the surface has been taken over

  /// Hands the mouse on to `pointer`, which must outlive the view: places in the surface's units.
  void follow(const PointerEvents& pointer) { pointer_ = &pointer; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  void refresh();
  void tell(const std::function<void(float)>& handler, const QMouseEvent& event) const;

  Surface& surface_;
  const PointerEvents* pointer_ = nullptr;
  QTimer refreshTimer_;
};

}  // namespace korvinel::platform
