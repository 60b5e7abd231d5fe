#pragma once

#include <QDialog>
#include <QScrollArea>

#include "platform/qt/focus_ring.h"
#include "platform/qt/surface_view.h"
#include "report/report_window.h"

namespace korvinel {

/// The comments on the screen: as wide as their longest line, with a scroll bar once they are longer than the window.
class CommentWindowView : public QDialog {
 public:
  CommentWindowView(CommentWindow& model, QWidget* owner);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void fitText();

  CommentWindow& model_;
  QScrollArea scroll_;
  platform::SurfaceView* text_;
  platform::FocusRing ring_{this, 8};
};

}  // namespace korvinel
