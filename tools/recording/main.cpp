#include "platform/console.h"
#include "recording/command_line.h"

int main(int count, char** arguments) {
  const korvinel::platform::Console console;
  return korvinel::tool::runProgram(korvinel::platform::commandLineWords(count, arguments));
}
