#pragma once

#include <QWidget>

namespace korvinel {

/// A short text on the window's dark ground, in letters of a height in units of the window's plan.
class GroundCaption : public QWidget {
 public:
  struct Look {
    double letters = 12;  ///< height, units of the plan
    bool strong = false;  ///< bold and white; else the grey of the axis captions
    Qt::Alignment place = Qt::AlignLeft | Qt::AlignVCenter;
  };

  /// `role`: what it is, in Italian, for a screen reader, which also reads the text.
  GroundCaption(QWidget* ground, const QString& role, const QString& help, Look look);

  void show(const QString& text, bool attention = false);  ///< `attention`: in yellow

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QString text_;
  Look look_;
  bool attention_ = false;
};

/// Colours on the ground.
[[nodiscard]] QColor captionInk(bool strong);
/// The widget's font with letters of this height in units of the plan, bold if wanted.
[[nodiscard]] QFont captionFont(const QWidget& onGround, double letters, bool strong = false);

}  // namespace korvinel
