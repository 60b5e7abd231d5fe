#include "platform/console.h"

#include <unistd.h>

namespace korvinel::platform {

// Nothing changes bytes here, and what a terminal makes of them is its own affair.
struct Console::Streams {};
Console::Console() = default;
Console::~Console() = default;

std::vector<std::string> commandLineWords(int count, const char* const* arguments) {
  return count < 1 ? std::vector<std::string>() : std::vector<std::string>(arguments + 1, arguments + count);
}

bool errorsAreWatched() { return isatty(STDERR_FILENO) == 1; }

}  // namespace korvinel::platform
