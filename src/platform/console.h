#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

/// What a program without a window wants of its terminal; each system has its own `console.cpp`.
namespace korvinel::platform {

/// While it lives, std::cout and std::cerr carry the very bytes that are written, and a terminal shows them as UTF-8.
/// The first thing that main() makes.
class Console {
 public:
  Console();
  ~Console();
  Console(const Console&) = delete;
  Console& operator=(const Console&) = delete;

 private:
  struct Streams;
  std::unique_ptr<Streams> streams_;
};

/// What follows the program's name on the command line, UTF-8. `count`, `arguments`: as main() was given them. Where
/// shells leave "*" and "?" in file names to the programs (on Windows), they are replaced here by the files they match.
[[nodiscard]] std::vector<std::string> commandLineWords(int count, const char* const* arguments);

/// Whether standard error is a terminal, with somebody before it.
[[nodiscard]] bool errorsAreWatched();

/// From now on, calls `act` in a thread of its own when the program is interrupted (Ctrl+C, the terminal closed,
/// SIGTERM), and then lets it end as the system would have. To be called before another thread is started.
void whenInterrupted(std::function<void()> act);

}  // namespace korvinel::platform
