#include "frame/main_state.h"
#include "frame/print_image.h"

namespace korvinel {

void MainState::printCommand() {
  printRequested = 1;
  printScreen();
}

void MainState::printScreen() {
  printPromptText = printPrompt;
  if (confirmPrint(host, printPromptText, timerMark)) return printActiveWindow(host);
  // Only Cancel clears the request: a replay that stopped for it prompts again until then.
  printRequested = 0;
}

}  // namespace korvinel
