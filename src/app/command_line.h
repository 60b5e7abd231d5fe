#pragma once

#include <optional>
#include <string>
#include <vector>

namespace korvinel {

/// What the program answers in the terminal instead of opening its window.
struct TerminalAnswer {
  int exitCode = 0;  ///< 0: as asked, for standard output; 2: the command line is refused, for standard error
  std::string text;  ///< UTF-8, whole lines
};

/// The answer to a command line, given without the program's name; nothing if the window is to be opened. No word
/// changes what the program does.
[[nodiscard]] std::optional<TerminalAnswer> answerTo(const std::vector<std::string>& words);

}  // namespace korvinel
