#include "platform/qt/toolkit_start.h"

#include <QStringList>
#include <cstdio>
#include <cstdlib>

namespace korvinel::platform {
namespace {

/// What the toolkit has reported while it starts.
QStringList& reports() {
  static QStringList texts;
  return texts;
}

std::string environment(const char* name) { return qgetenv(name).toStdString(); }

void endWithoutDisplay() {
  const std::string x = environment("DISPLAY");
  const std::string reason = reports().isEmpty() ? "" : reports().front().toStdString();
  const std::string sentence =
      noDisplaySentence(x.empty() ? environment("WAYLAND_DISPLAY") : x, environment("QT_QPA_PLATFORM"), reason);
  std::fprintf(stderr, "korvinel: %s\n", sentence.c_str());
  std::fflush(stderr);
  std::_Exit(EXIT_FAILURE);  // a return would abort
}

void keepReport(QtMsgType kind, const QMessageLogContext& /*place*/, const QString& text) {
  if (kind == QtFatalMsg) endWithoutDisplay();
  reports().append(text);
}

}  // namespace

std::unique_ptr<QApplication> startToolkit(int& count, char** arguments) {
  const QtMessageHandler usual = qInstallMessageHandler(keepReport);
  auto application = std::make_unique<QApplication>(count, arguments);
  qInstallMessageHandler(usual);
  for (const QString& each : reports()) std::fprintf(stderr, "%s\n", qPrintable(each));
  return application;
}

std::string noDisplaySentence(const std::string& display, const std::string& plugin, const std::string& reason) {
  const std::string why = reason.empty() ? "" : " (" + reason + ")";
  if (!plugin.empty() && plugin != "xcb" && !plugin.starts_with("wayland"))
    return "la finestra non si può aprire con QT_QPA_PLATFORM=" + plugin + why;
  if (display.empty()) return "non c'è uno schermo su cui aprire la finestra: avviare il programma dal desktop";
  return "lo schermo " + display + " non si può usare: avviare il programma dal desktop di questo utente" + why;
}

}  // namespace korvinel::platform
