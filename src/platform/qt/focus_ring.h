#pragma once

#include <QPointer>
#include <QWidget>

namespace korvinel::platform {

/// A ring around the widget with the focus, in two colours visible on dark and light backgrounds. It lies over the
/// other widgets and takes no mouse events.
class FocusRing : public QWidget {
 public:
  /// `distance`: pixels between the ring and the widget.
  explicit FocusRing(QWidget* ground, int distance = 0);
  /// Whether the ring shows the focus; initially it does.
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
