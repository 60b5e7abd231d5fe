#pragma once

#include <QLabel>

#include "guidance/signal_history.h"

namespace korvinel {

/// The signal of one site: a shape in a colour, the site's name and a word; below, the last minute, one cell per turn,
/// the newest at the right. Every state has its own shape, in the cells too, so that no colour has to be told apart.
/// A label for assistive programs, which do not stop at other widgets without a role.
class Lamp : public QLabel {
 public:
  Lamp(int channel, QWidget* parent);

  void display(const guidance::SignalHistory& history);

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void describe();
  void drawHeading(QPainter& painter) const;
  void drawHistory(QPainter& painter) const;

  int channel_;
  QString site_;
  guidance::SiteSignal signal_;
  guidance::SignalHistory::States states_;
  QString summary_;
};

}  // namespace korvinel
