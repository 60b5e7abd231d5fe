#include "frame/main_state.h"
#include "platform/dialogs.h"
#include "platform/machine.h"

namespace korvinel {

void MainState::openReport() {
  const bool italian = shared.languageFlag == "Ita";
  if (acquisitionRunning == 1 && italian) return host.dialogs.notice("Aspettare lettura file o premere Stop!");
  if (intervalSelectable == 1) return host.windows.showReport();
  if (const std::string waitFor = awaited(); italian && !waitFor.empty()) return host.dialogs.notice(waitFor);
  // Only here: with a file open the text is its date field, which the 50 Hz label shows.
  if (italian) headerText1 = "Nessun dato in memoria! Prima apri un file!";
  host.dialogs.notice(headerText1);
}

}  // namespace korvinel
