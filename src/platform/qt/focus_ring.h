#pragma once

#include <QPointer>
#include <QWidget>

namespace korvinel::platform {

/// A ring around whatever has the keyboard, in two colours that can be seen on dark and on light ground alike. It lies
/// over the widgets of its ground and takes no mouse events.
class FocusRing : public QWidget {
 public:
  /// `distance`: pixels between the ring and what it surrounds.
  explicit FocusRing(QWidget* ground, int distance = 0);
  /// Whether the ring shows where the keyboard is; it does from the beginning.
  void setShown(bool shown);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void moveTo(QWidget* focused);
  void surround();

  int distance_;
  bool shown_ = true;
  QPointer<QWidget> focused_;
};

}  // namespace korvinel::platform
