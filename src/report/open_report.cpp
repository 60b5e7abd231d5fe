#include "frame/main_state.h"
#include "frame/program_values.h"
#include "platform/companion_windows.h"
#include "platform/dialogs.h"
#include "platform/platform.h"

namespace korvinel {

void MainState::openReport() {
  const bool italian = shared.inItalian();
  if (acquisitionRunning == 1 && italian) return host.dialogs.notice("Aspettare lettura file o premere Stop!");
  const std::string waitFor = awaited();
  if (intervalSelectable == 0 && italian && !waitFor.empty()) return host.dialogs.notice(waitFor);
  if (italian) headerText1 = "Nessun dato in memoria! Prima apri un file!";
  if (intervalSelectable == 0) return host.dialogs.notice(headerText1);
  host.windows.showReport();
}

}  // namespace korvinel
