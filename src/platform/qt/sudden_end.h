#pragma once

#include <QObject>
#include <QSocketNotifier>
#include <functional>
#include <memory>

namespace korvinel::platform {

/// Tells the program that it has to end without asking anybody.
class SuddenEnd : public QObject {
 public:
  struct Acts {
    std::function<void()> onSignal;       ///< a signal has come; event loops go on
    std::function<void()> onSessionEnd;   ///< the session or the application ends; on Windows the process with it
    std::function<void()> onDisplayGone;  ///< the toolkit has lost the display and leaves through exit(): no way back
  };

  /// `signalDescriptor`: becomes readable when a signal has come; -1 where there are none. One object at a time.
  SuddenEnd(int signalDescriptor, Acts acts);
  ~SuddenEnd() override;

 private:
  bool eventFilter(QObject* receiver, QEvent* event) override;

  Acts acts_;
  std::unique_ptr<QSocketNotifier> notifier_;
};

}  // namespace korvinel::platform
