#include "app/comment_window_view.h"

#include <QResizeEvent>
#include <QScrollBar>
#include <cmath>

#include "app/report_window_help.h"

namespace korvinel {
namespace {

constexpr int margin = 16;

}  // namespace

CommentWindowView::CommentWindowView(CommentWindow& model, QWidget* owner)
    : QDialog(owner), model_(model), scroll_(this), text_(new platform::SurfaceView(model.text)) {
  setWindowTitle("Korvinel - Commenti");
  setPalette(QPalette(palette().color(QPalette::Button), Qt::white));
  scroll_.setFrameStyle(QFrame::NoFrame);
  scroll_.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  scroll_.setWidget(text_);
  scroll_.setAccessibleName("Commenti da scorrere");
  scroll_.setFocusPolicy(Qt::StrongFocus);
  explain(scroll_, report_window_help::comments);
  explain(*text_, report_window_help::comments);
  text_->onRefreshed = [this] { fitText(); };
  resize(static_cast<int>(model.text.width()) + 2 * margin, static_cast<int>(model.text.height()) + 2 * margin);
  setMinimumSize(size() / 2);
}

void CommentWindowView::resizeEvent(QResizeEvent* event) {
  QDialog::resizeEvent(event);
  scroll_.setGeometry(rect().adjusted(margin, margin, -margin, -margin));
  fitText();
}

/// Makes the text as wide as its window and shows the newest lines.
void CommentWindowView::fitText() {
  const int width = scroll_.viewport()->width();
  const int height = static_cast<int>(std::lround(model_.text.height() * width / model_.text.width()));
  if (text_->size() == QSize(width, height)) return;
  text_->resize(width, height);
  scroll_.verticalScrollBar()->setValue(scroll_.verticalScrollBar()->maximum());
}

}  // namespace korvinel
