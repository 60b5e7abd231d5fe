#pragma once

#include <QTimer>
#include <QWidget>
#include <functional>

#include "platform/controls.h"
#include "platform/surface.h"

namespace korvinel::platform {

/// Shows a surface at the true pixels of its widget; successive changes are painted together. Its texts are the
/// widget's accessible description, a line each, so its help is only shown as "What's this" and as a tool tip. Over a
/// text that does not fit one row, the tool tip shows the whole text. The surface must outlive it.
class SurfaceView : public QWidget {
 public:
  explicit SurfaceView(Surface& surface, QWidget* parent = nullptr);
  ~SurfaceView() override;
  SurfaceView(const SurfaceView&) = delete;
  SurfaceView& operator=(const SurfaceView&) = delete;

  std::function<void()> onRefreshed;  ///< called after each change of the surface has been applied

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
