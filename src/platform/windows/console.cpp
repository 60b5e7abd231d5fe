#include "platform/console.h"

#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <cstdio>

#include "platform/windows/wide_text.h"

/// The C library's own reading of the command line; the header that declares it is not for programs.
extern "C" int __cdecl __wgetmainargs(int* count, wchar_t*** words, wchar_t*** environment, int expandWildcards,
                                      int* newMode);

namespace korvinel::platform {

Console::Console() : before_(GetConsoleOutputCP()) {
  SetConsoleOutputCP(CP_UTF8);
  _setmode(_fileno(stdout), _O_BINARY);
  _setmode(_fileno(stderr), _O_BINARY);
}

Console::~Console() {
  std::fflush(nullptr);
  if (before_ != 0) SetConsoleOutputCP(before_);
}

/// What main() is given is in the system's old code page, which has no letter for many a name.
std::vector<std::string> commandLineWords(int, const char* const*) {
  int count = 0;
  wchar_t** wide = nullptr;
  wchar_t** environment = nullptr;
  int newMode = 0;
  constexpr int expandWildcards = 1;
  __wgetmainargs(&count, &wide, &environment, expandWildcards, &newMode);
  std::vector<std::string> words;
  for (int i = 1; i < count; ++i) words.push_back(utf8FromWide(wide[i]));
  return words;
}

bool errorsAreWatched() {
  DWORD mode = 0;
  return GetConsoleMode(GetStdHandle(STD_ERROR_HANDLE), &mode) != 0;
}

}  // namespace korvinel::platform
