#include "frame/print_image.h"
#include "platform/companion_windows.h"
#include "platform/dialogs.h"
#include "platform/platform.h"
#include "platform/screen_printer.h"
#include "report/report_state.h"

namespace korvinel {

void ReportState::exitCommand() { host.windows.closeReport(); }

void ReportState::numbersCommand() {
  numbersFlag = 1;
  drawBandValues();
}

void ReportState::printCommand() {
  printPromptText = printPrompt;
  if (!confirmPrint(host, printPromptText, timerMark)) return;
  host.screenPrinter.emptyClipboard();
  printActiveWindow(host);
}

void ReportState::explainCommand() {
  host.dialogs.notice(
      "In questa versione del software e' stata introdotta anche la\r"
      " curva del rumore, che mostra la attivita' di base EEG di tipo\r"
      " indifferenziato, sempre presente. Cioe' che eccede la curva di\r"
      " rumore, e' invece una attivita' EEG piu' specifica e significativa.");
}

void ReportState::closeReport() { host.windows.showMain(); }

}  // namespace korvinel
