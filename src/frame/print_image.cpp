#include "frame/print_image.h"

#include "frame/waiting.h"
#include "platform/dialogs.h"
#include "platform/screen_printer.h"

namespace korvinel {
namespace {

/// Both families of systems copy the active window, not the whole screen, each with its own scan code.
int captureScanCode(int majorVersion) {
  constexpr int secondFamily = 5;
  return majorVersion >= secondFamily ? 1 : 0;
}

// Millimetres
constexpr double left = 10, top = 3, width = 190, height = 145;

}  // namespace

bool confirmPrint(platform::Platform& host, const std::string& prompt, double& timerMark) {
  if (host.dialogs.ask(prompt, "Stampa Immagine") == platform::Choice::cancel) return false;
  waitAtLeast(host, timerMark, 0.2);
  return true;
}

void printActiveWindow(platform::Platform& host) {
  host.screenPrinter.pressPrintScreen(captureScanCode(host.screenPrinter.systemMajorVersion()));
  host.events.process();
  host.screenPrinter.printClipboard(left, top, width, height);
}

}  // namespace korvinel
