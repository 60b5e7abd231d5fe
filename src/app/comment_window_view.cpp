#include "app/comment_window_view.h"

#include <QResizeEvent>
#include <QScrollBar>
#include <cmath>

#include "platform/qt/plan_ground.h"

namespace korvinel {

CommentWindowView::CommentWindowView(CommentWindow& model, QWidget* owner)
    : QDialog(owner), model_(model), scroll_(this), text_(new platform::SurfaceView(model.text)) {
  setWindowTitle("Korvinel - Commenti");
  setPalette(platform::panelColours());
  scroll_.setFrameStyle(QFrame::NoFrame);
  scroll_.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  scroll_.setWidget(text_);
  text_->onRefreshed = [this] { fitText(); };
  resize(static_cast<int>(model.text.width()), static_cast<int>(model.text.height()));
  setMinimumSize(size() / 2);
}

void CommentWindowView::resizeEvent(QResizeEvent* event) {
  QDialog::resizeEvent(event);
  scroll_.resize(size());
  fitText();
}

/// The text as wide as its window; the newest lines in sight.
void CommentWindowView::fitText() {
  const int width = scroll_.viewport()->width();
  const int height = static_cast<int>(std::lround(model_.text.height() * width / model_.text.width()));
  if (text_->size() == QSize(width, height)) return;
  text_->resize(width, height);
  scroll_.verticalScrollBar()->setValue(scroll_.verticalScrollBar()->maximum());
}

}  // namespace korvinel
