#include "app/comment_window_view.h"

#include <QResizeEvent>
#include <QScrollBar>
#include <algorithm>
#include <cmath>

#include "app/report_window_help.h"
#include "platform/qt/qt_text.h"

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
  line_.setWordWrap(true);
  line_.setTextFormat(Qt::PlainText);
  line_.setAccessibleDescription("Che cosa riguardano i commenti");
  resize(static_cast<int>(model.text.width()) + 2 * margin, static_cast<int>(model.text.height()) + 2 * margin);
  setMinimumSize(size() / 2);
}

void CommentWindowView::resizeEvent(QResizeEvent* event) {
  QDialog::resizeEvent(event);
  placeParts();
}

void CommentWindowView::placeParts() {
  const int width = rect().width() - 2 * margin;
  const int band = bandFor(width);
  line_.setGeometry(margin, margin / 2, width, band);
  scroll_.setGeometry(rect().adjusted(margin, margin + band, -margin, -margin));
  veil_.setGeometry(scroll_.geometry());
  fitText();
}

/// The height of the line above the comments, with room for the ring around them.
int CommentWindowView::bandFor(int width) const {
  return line_.text().isEmpty() ? 0 : line_.heightForWidth(width) + margin / 2;
}

void CommentWindowView::showStanding(const guidance::ReportStanding& standing) {
  const QString line = platform::toQt(standing.line);
  const bool first = line_.text().isEmpty();
  QPalette letters;
  if (!standing.current) letters.setColor(QPalette::WindowText, QColor(128, 0, 0));
  line_.setPalette(letters);
  if (line_.text() != line) line_.setText(line);
  veil_.cover(platform::toQt(standing.missing.empty() ? standing.doubtful : standing.missing));
  if (first) resize(width(), height() + bandFor(width() - 2 * margin));
  placeParts();
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
