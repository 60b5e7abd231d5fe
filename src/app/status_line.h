#pragma once

#include <QLabel>

#include "guidance/status.h"

namespace korvinel {

/// One or two lines that say what is going on, with a coloured sign before them. A screen reader speaks each new one.
class StatusLine : public QLabel {
 public:
  explicit StatusLine(QWidget* parent);
  void show(const guidance::Status& status);
  [[nodiscard]] const guidance::Status& shown() const { return status_; }
  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void paintSign(QPainter& painter, const QRectF& place) const;
  void speak();

  guidance::Status status_;
};

}  // namespace korvinel
