#pragma once

namespace korvinel::tool {

/// The whole program: reads the command line, runs the subcommand, reports errors on standard error. Returns the exit
/// code.
int runProgram(int count, const char* const* arguments);

}  // namespace korvinel::tool
