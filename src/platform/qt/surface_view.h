#pragma once

#include <QTimer>
#include <QWidget>
#include <functional>

#include "platform/controls.h"
#include "platform/surface.h"

namespace korvinel::platform {

/// Shows a surface at the true pixels of its widget; many changes in a row are painted at once. Its texts are the
/// widget's accessible description, a line each, so its help is told as "What's this" and by the mouse alone. Over a
/// text that has not found place in one row the mouse tells it whole. The surface must outlive it.
class SurfaceView : public QWidget {
 public:
  explicit SurfaceView(Surface& surface, QWidget* parent = nullptr);
  ~SurfaceView() override;
  SurfaceView(const SurfaceView&) = delete;
  SurfaceView& operator=(const SurfaceView&) = delete;

  std::function<void()> onRefreshed;  ///< called after every change of the surface has been taken over

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  const Surface& surface() const { return surface_; }

 private:
  void refresh();
  [[nodiscard]] QString longTextAt(const QPoint& place) const;

  Surface& surface_;
  QTimer refreshTimer_;
};

}  // namespace korvinel::platform
