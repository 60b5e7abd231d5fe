#pragma once

#include <QFrame>
#include <QLabel>
#include <QPushButton>
#include <functional>
#include <string>

namespace korvinel {

/// A notice about an interrupted examination, with "Recupera" and "Più tardi". It waits without holding anything up.
class InterruptedView : public QFrame {
 public:
  struct Actions {
    std::function<void()> recover, later;
  };

  InterruptedView(QWidget* parent, const Actions& actions);

  /// Shows the notice; a screen reader speaks a new text. `askToRecover`: else the only button is "Chiudi".
  void tell(const std::string& text, bool askToRecover);
  void setRecoverable(bool recoverable);  ///< "Recupera" can be pressed

 private:
  QLabel text_;
  QPushButton recover_, later_;
};

}  // namespace korvinel
