#pragma once

#include <QDialog>
#include <QScrollArea>

#include "app/veils.h"
#include "guidance/report_standing.h"
#include "platform/qt/focus_ring.h"
#include "platform/qt/surface_view.h"
#include "report/report_window.h"

namespace korvinel {

/// The comments on the screen: as wide as their longest line, with a scroll bar once they are longer than the window.
class CommentWindowView : public QDialog {
 public:
  CommentWindowView(CommentWindow& model, QWidget* owner);

  /// Writes above the comments what they stand for, and covers them if there was nothing to judge.
  void showStanding(const guidance::ReportStanding& standing);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void fitText();
  void placeParts();
  [[nodiscard]] int bandFor(int width) const;

  CommentWindow& model_;
  QScrollArea scroll_;
  platform::SurfaceView* text_;
  QLabel line_{this};
  Veil veil_{this, "Perché i commenti sono coperti"};
  platform::FocusRing ring_{this, 8};
};

}  // namespace korvinel
