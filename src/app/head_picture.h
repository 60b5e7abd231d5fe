#pragma once

#include <QWidget>

class QPainter;

namespace korvinel {

/// Paints the head in the middle of `place`, as large as it allows, with letters of the painter's font.
void paintHead(QPainter& painter, const QRectF& place);

/// A head seen from above with the four electrode sites: F1 and F2 at the front, T5 and T6 at the temples behind.
class HeadPicture : public QWidget {
 public:
  using QWidget::QWidget;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace korvinel
