#include "recording/command_line.h"

int main(int count, char** arguments) { return korvinel::tool::runProgram(count, arguments); }
