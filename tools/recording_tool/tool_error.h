#pragma once

#include <stdexcept>
#include <string>

namespace korvinel::tool {

/// Exit codes of the program.
enum ExitCode : int {
  done = 0,
  failed = 1,         ///< a file is damaged, or something could not be read or written
  notUnderstood = 2,  ///< the command line
};

/// An operation on a file that failed. what() is the line for the user: "FILE: what is wrong, where".
struct ToolError : std::runtime_error {
  ToolError(const std::string& file, const std::string& what) : std::runtime_error(file + ": " + what) {}
};

/// A command line whose parts contradict each other.
struct UsageError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

}  // namespace korvinel::tool
