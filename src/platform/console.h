#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

/// What a program needs of the terminal that it was started from; each system has its own `console.cpp`.
namespace korvinel::platform {

/// During its lifetime, std::cout and std::cerr pass bytes unchanged, and a terminal shows them as UTF-8. To be created
/// first in main().
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

/// Lets a program made for windows write to the terminal that it was started from. To be called before a Console is
/// created; has no effect if the program can already.
void joinTerminal();

/// The command line's arguments without the program's name, in UTF-8. `count`, `arguments`: those of main(). On
/// Windows, where shells do not expand "*" and "?", they are replaced here by the names of the matching files.
[[nodiscard]] std::vector<std::string> commandLineWords(int count, const char* const* arguments);

/// Whether standard error is a terminal.
[[nodiscard]] bool errorsAreWatched();

/// From now on, an interruption (Ctrl+C, the terminal closed, SIGTERM) calls `act` in a separate thread and then ends
/// the program as usual. To be called before another thread is started.
void whenInterrupted(std::function<void()> act);

}  // namespace korvinel::platform
