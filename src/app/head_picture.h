#pragma once

#include <QWidget>

namespace korvinel {

/// A head seen from above with the four electrode sites: F1 and F2 at the front, T5 and T6 at the temples behind.
class HeadPicture : public QWidget {
 public:
  using QWidget::QWidget;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace korvinel
