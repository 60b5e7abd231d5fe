#include "platform/qt/desktop_wakefulness.h"

#include <QDBusConnection>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <utility>

namespace korvinel::platform {
namespace {

constexpr const char* why = "Esame EEG in corso";

QDBusMessage screenSaver(const char* request) {
  return QDBusMessage::createMethodCall("org.freedesktop.ScreenSaver", "/org/freedesktop/ScreenSaver",
                                        "org.freedesktop.ScreenSaver", request);
}

QDBusMessage inhibitScreenSaver() {
  QDBusMessage request = screenSaver("Inhibit");
  request << "Korvinel" << why;
  return request;
}

QDBusMessage inhibitSleep() {
  QDBusMessage request = QDBusMessage::createMethodCall("org.freedesktop.login1", "/org/freedesktop/login1",
                                                        "org.freedesktop.login1.Manager", "Inhibit");
  request << "sleep:idle"
          << "Korvinel" << why << "block";
  return request;
}

void returnCookie(unsigned cookie) {
  QDBusMessage request = screenSaver("UnInhibit");
  request << cookie;
  QDBusConnection::sessionBus().send(request);
}

}  // namespace

DesktopWakefulness::~DesktopWakefulness() { DesktopWakefulness::release(); }

void DesktopWakefulness::hold() {
  if (std::exchange(held_, true)) return;
  ask(QDBusConnection::sessionBus(), inhibitScreenSaver(), [this](const auto& answer) { keepCookie(answer); });
  ask(QDBusConnection::systemBus(), inhibitSleep(), [this](const auto& answer) { keepLock(answer); });
}

void DesktopWakefulness::release() {
  held_ = false;
  lock_ = QDBusUnixFileDescriptor();
  if (cookie_) returnCookie(*std::exchange(cookie_, std::nullopt));
}

void DesktopWakefulness::ask(const QDBusConnection& bus, const QDBusMessage& request,
                             std::function<void(const QDBusMessage&)> onAnswer) {
  if (!bus.isConnected()) return;
  const auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(request), this);
  connect(watcher, &QDBusPendingCallWatcher::finished, this, [onAnswer = std::move(onAnswer)](auto* finished) {
    if (!finished->isError()) onAnswer(finished->reply());
    finished->deleteLater();
  });
}

/// An answer may come after the release, or twice after a short pause.
void DesktopWakefulness::keepCookie(const QDBusMessage& answer) {
  const QDBusPendingReply<unsigned> reply(answer);
  if (!reply.isValid()) return;
  if (!held_ || cookie_) return returnCookie(reply.value());
  cookie_ = reply.value();
}

void DesktopWakefulness::keepLock(const QDBusMessage& answer) {
  const QDBusPendingReply<QDBusUnixFileDescriptor> reply(answer);
  if (held_ && reply.isValid()) lock_ = reply.value();
}

}  // namespace korvinel::platform
