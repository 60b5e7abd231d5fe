#pragma once

#include <string>
#include <vector>

namespace korvinel::tool {

/// The whole program: reads the command line, runs the subcommand, reports errors on standard error. `words`: the
/// arguments without the program's name, UTF-8. Returns the exit code.
int runProgram(std::vector<std::string> words);

}  // namespace korvinel::tool
