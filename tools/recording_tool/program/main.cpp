#include "platform/console.h"
#include "recording_tool/program/command_line.h"
#include "recording_tool/unfinished_file.h"

int main(int count, char** arguments) {
  const korvinel::platform::Console console;
  korvinel::platform::whenInterrupted(korvinel::tool::removeUnfinishedFiles);
  return korvinel::tool::runProgram(korvinel::platform::commandLineWords(count, arguments));
}
