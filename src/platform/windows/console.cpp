#include "platform/console.h"

#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <iostream>
#include <streambuf>

#include "platform/windows/wide_text.h"

/// The C library's own expansion of the command line; the header that declares it is not public.
extern "C" int __cdecl __wgetmainargs(int* count, wchar_t*** words, wchar_t*** environment, int expandWildcards,
                                      int* newMode);

namespace korvinel::platform {
namespace {

/// Passes whole characters to a terminal: the C library would write single bytes, which terminals do not combine.
class TerminalText : public std::streambuf {
 public:
  explicit TerminalText(HANDLE terminal) : terminal_(terminal) {}

 private:
  int_type overflow(int_type byte) override {
    if (traits_type::eq_int_type(byte, traits_type::eof())) return traits_type::not_eof(byte);
    text_ += traits_type::to_char_type(byte);
    if (text_.back() == '\n') sync();
    return byte;
  }

  int sync() override {
    const std::size_t whole = wholeLetters(text_);
    const std::wstring wide = wideFromUtf8(text_.substr(0, whole));
    text_.erase(0, whole);
    DWORD written = 0;
    if (wide.empty()) return 0;
    return WriteConsoleW(terminal_, wide.data(), static_cast<DWORD>(wide.size()), &written, nullptr) != 0 ? 0 : -1;
  }

  HANDLE terminal_;
  std::string text_;
};

bool isTerminal(HANDLE handle) {
  DWORD mode = 0;
  return GetConsoleMode(handle, &mode) != 0;
}

/// Redirects a stream to its terminal; without a terminal, its bytes pass unchanged.
class Way {
 public:
  Way(std::ostream& stream, DWORD handle, int file) : stream_(stream), terminal_(GetStdHandle(handle)) {
    if (isTerminal(GetStdHandle(handle)))
      before_ = stream_.rdbuf(&terminal_);
    else
      _setmode(file, _O_BINARY);
  }
  Way(const Way&) = delete;
  Way& operator=(const Way&) = delete;
  ~Way() {
    stream_.flush();
    if (before_ != nullptr) stream_.rdbuf(before_);
  }

 private:
  std::ostream& stream_;
  TerminalText terminal_;
  std::streambuf* before_ = nullptr;
};

}  // namespace

struct Console::Streams {
  Way output{std::cout, STD_OUTPUT_HANDLE, _fileno(stdout)};
  Way errors{std::cerr, STD_ERROR_HANDLE, _fileno(stderr)};
};

Console::Console() : streams_(std::make_unique<Streams>()) {}
Console::~Console() = default;

/// The system gives a program made for windows no streams, unless they were redirected.
void joinTerminal() {
  if (GetStdHandle(STD_OUTPUT_HANDLE) == nullptr) AttachConsole(ATTACH_PARENT_PROCESS);
}

/// The arguments of main() are in the system's old code page, which cannot represent many names.
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

bool errorsAreWatched() { return isTerminal(GetStdHandle(STD_ERROR_HANDLE)); }

void whenInterrupted(std::function<void()> act) {
  static auto& toDo = *new std::function<void()>;  // never destroyed, as it is used during exit
  toDo = std::move(act);
  SetConsoleCtrlHandler(
      [](DWORD) -> BOOL {
        toDo();
        return FALSE;  // the system ends the program
      },
      TRUE);
}

}  // namespace korvinel::platform
