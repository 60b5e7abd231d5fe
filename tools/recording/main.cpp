#include "platform/console.h"
#include "recording/command_line.h"
#include "recording/unfinished_file.h"

int main(int count, char** arguments) {
  const korvinel::platform::Console console;
  korvinel::platform::whenInterrupted(korvinel::tool::removeUnfinishedFiles);
  return korvinel::tool::runProgram(korvinel::platform::commandLineWords(count, arguments));
}
