#pragma once

#include <QDBusMessage>
#include <QDBusUnixFileDescriptor>
#include <QObject>
#include <functional>
#include <optional>

#include "platform/wakefulness.h"

class QDBusConnection;

namespace korvinel::platform {

/// Asks the desktop to leave the screen on, and the login manager not to suspend the machine. Nobody waits for their
/// answers; the buses are connected at the first request.
class DesktopWakefulness : public QObject, public Wakefulness {
 public:
  ~DesktopWakefulness() override;
  void hold() override;
  void release() override;

 private:
  void ask(const QDBusConnection& bus, const QDBusMessage& request, std::function<void(const QDBusMessage&)> onAnswer);
  void keepCookie(const QDBusMessage& answer);
  void keepLock(const QDBusMessage& answer);

  bool held_ = false;
  std::optional<unsigned> cookie_;  ///< of the desktop's promise
  QDBusUnixFileDescriptor lock_;    ///< the login manager's promise ends when this is closed
};

}  // namespace korvinel::platform
