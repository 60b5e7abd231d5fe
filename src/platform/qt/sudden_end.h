#pragma once

#include <QObject>
#include <QSocketNotifier>
#include <functional>
#include <memory>

namespace korvinel::platform {

/// Reports events on which the program must end without asking.
class SuddenEnd : public QObject {
 public:
  struct Acts {
    std::function<void()> onSignal;       ///< a signal has arrived; event loops continue
    std::function<void()> onSessionEnd;   ///< the session or the application ends; on Windows the process with it
    std::function<void()> onDisplayGone;  ///< the toolkit has lost the display and calls exit(): there is no return
  };

  /// `signalDescriptor`: becomes readable when a signal has arrived; -1 if there are no signals. One object at a time.
  SuddenEnd(int signalDescriptor, Acts acts);
  ~SuddenEnd() override;

 private:
  bool eventFilter(QObject* receiver, QEvent* event) override;

  Acts acts_;
  std::unique_ptr<QSocketNotifier> notifier_;
};

}  // namespace korvinel::platform
