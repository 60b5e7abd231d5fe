#pragma once

#include <QWidget>
#include <vector>

#include "guidance/note_list.h"
#include "platform/qt/pointer_surface_view.h"

namespace korvinel {

/// The marks of the notes over the time strip, while the strip has lost its own, and their texts when the pointer or
/// the keyboard's mark is on one. The mouse reaches the strip.
class StripMarks : public QWidget {
 public:
  /// `strip`: whose events are watched; it must outlive this.
  StripMarks(QWidget* ground, platform::PointerSurfaceView& strip);

  void show(const std::vector<guidance::NoteLine>& notes, bool marksAreMissing);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  [[nodiscard]] double pixelsPerSecond() const;
  bool tellUnderPointer(const QPoint& place, const QPoint& onScreen);
  void tellUnderMark();

  platform::PointerSurfaceView& strip_;
  std::vector<guidance::NoteLine> notes_;
  bool painted_ = false;
};

}  // namespace korvinel
