#include <QApplication>
#include <QIcon>
#include <QMessageBox>
#include <clocale>
#include <exception>
#include <iostream>
#include <memory>
#include <optional>

#include "app/command_line.h"
#include "app/program.h"
#include "frame/fault_text.h"
#include "platform/console.h"
#include "platform/host_paths.h"
#include "platform/qt/appearance.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/toolkit_start.h"

namespace {

/// The exit code, if the command line is answered in the terminal.
std::optional<int> answeredInTerminal(int count, char** arguments) {
  const auto answer = korvinel::answerTo(korvinel::platform::commandLineWords(count, arguments));
  if (!answer) return std::nullopt;
  korvinel::platform::joinTerminal();
  const korvinel::platform::Console console;
  (answer->exitCode == 0 ? std::cout : std::cerr) << answer->text << std::flush;
  return answer->exitCode;
}

int refuseToStart(const std::exception& cause) {
  QMessageBox box(QMessageBox::Critical, "Korvinel", "Korvinel non può partire.", QMessageBox::Ok);
  box.setTextFormat(Qt::PlainText);
  box.setText("Korvinel non può partire.\n\n" + korvinel::platform::toQt(korvinel::faultText(cause)));
  box.exec();
  return 1;
}

}  // namespace

int main(int argc, char** argv) {
  if (const auto exitCode = answeredInTerminal(argc, argv)) return *exitCode;
  const auto application = korvinel::platform::startToolkit(argc, argv);
  // The desktop finds the installed program and its icon by these names.
  QApplication::setDesktopFileName("org.korvinel.Korvinel");
  QApplication::setWindowIcon(QIcon::fromTheme("korvinel"));
  // The toolkit sets the machine's locale; numbers must still have a decimal point.
  std::setlocale(LC_NUMERIC, "C");
  QApplication::setApplicationName("Korvinel");
  korvinel::platform::applyAppearance();
  try {
    const auto program = std::make_unique<korvinel::Program>(korvinel::platform::userDataFolder());
    program->startUp();
    return program->run();
  } catch (const std::exception& cause) {
    return refuseToStart(cause);
  }
}
