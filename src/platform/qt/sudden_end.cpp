#include "platform/qt/sudden_end.h"

#include <QCoreApplication>
#include <QEvent>
#include <cstdlib>
#include <utility>

namespace korvinel::platform {
namespace {

std::function<void()>& displayGone() {
  static auto& act = *new std::function<void()>;  // never destroyed, as it is used during exit
  return act;
}

/// While the program runs, only the toolkit calls exit(), when it has lost the display.
void atExit() {
  const std::function<void()> act = std::exchange(displayGone(), {});
  if (!act) return;
  act();
  // The toolkit's own clean-up would need the display.
  std::_Exit(EXIT_FAILURE);
}

void watchExit(std::function<void()> act) {
  [[maybe_unused]] static const int registered = std::atexit(atExit);
  displayGone() = std::move(act);
}

}  // namespace

SuddenEnd::SuddenEnd(int signalDescriptor, Acts acts) : acts_(std::move(acts)) {
  watchExit(acts_.onDisplayGone);
  QCoreApplication::instance()->installEventFilter(this);
  // On Windows the end of a session is reported only by this message, and the process ends when its handler returns.
  connect(QCoreApplication::instance(), &QCoreApplication::aboutToQuit, this, [this] { acts_.onSessionEnd(); });
  if (signalDescriptor < 0) return;
  notifier_ = std::make_unique<QSocketNotifier>(signalDescriptor, QSocketNotifier::Read);
  connect(notifier_.get(), &QSocketNotifier::activated, this, [this] {
    notifier_->setEnabled(false);  // the byte stays in the pipe
    acts_.onSignal();
  });
}

SuddenEnd::~SuddenEnd() { watchExit({}); }

/// The session manager of an X desktop asks the application to quit; closing its windows would first wait for a turn.
bool SuddenEnd::eventFilter(QObject* receiver, QEvent* event) {
  if (event->type() == QEvent::Quit && receiver == QCoreApplication::instance()) acts_.onSessionEnd();
  return QObject::eventFilter(receiver, event);
}

}  // namespace korvinel::platform
