#pragma once

#include <QLabel>
#include <functional>
#include <string>

class QLineEdit;

namespace korvinel::platform {

/// Grey text after the caret of a box: the rest of a suggestion, which Tab takes. It is never part of the box's text,
/// and while none is shown Tab moves the focus as usual.
class GhostText : public QLabel {
 public:
  /// `suggest`: returns the whole text for what is typed, which must begin with it; "" = none. Asked whenever the box
  /// changes, and by refresh().
  GhostText(QLineEdit& box, std::function<std::string(const std::string& typed)> suggest);

  void refresh();
  void setShown(bool shown);  ///< a page shows no suggestion

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  [[nodiscard]] bool mayBeShown() const;
  void place(const QString& rest);
  void take();

  QLineEdit& box_;
  std::function<std::string(const std::string&)> suggest_;
  bool shown_ = true;
  QString whole_;  ///< the suggestion that is shown, "" = none
};

}  // namespace korvinel::platform
