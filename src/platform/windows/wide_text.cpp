#include "platform/windows/wide_text.h"

#include <windows.h>

#include <array>

namespace korvinel::platform {

std::wstring wideFromUtf8(std::string_view utf8) {
  const int size = static_cast<int>(utf8.size());
  std::wstring wide(static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, nullptr, 0)), L'\0');
  MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, wide.data(), static_cast<int>(wide.size()));
  return wide;
}

std::string utf8FromWide(std::wstring_view wide) {
  const int size = static_cast<int>(wide.size());
  const int needed = WideCharToMultiByte(CP_UTF8, 0, wide.data(), size, nullptr, 0, nullptr, nullptr);
  std::string utf8(static_cast<std::size_t>(needed), '\0');
  WideCharToMultiByte(CP_UTF8, 0, wide.data(), size, utf8.data(), needed, nullptr, nullptr);
  return utf8;
}

std::size_t wholeLetters(std::string_view utf8) {
  constexpr std::size_t longestLetter = 4;
  for (std::size_t length = 1; length < longestLetter && length <= utf8.size(); ++length) {
    const auto byte = static_cast<unsigned char>(utf8[utf8.size() - length]);
    const bool continues = byte >= 0x80 && byte < 0xC0;
    if (continues) continue;
    const std::size_t wanted = byte < 0xC0 ? 1 : byte < 0xE0 ? 2 : byte < 0xF0 ? 3 : 4;
    return wanted > length ? utf8.size() - length : utf8.size();
  }
  return utf8.size();
}

std::string systemMessage(unsigned long error) {
  std::array<wchar_t, 512> text{};
  const DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, error, 0,
                                      text.data(), static_cast<DWORD>(text.size()), nullptr);
  if (length == 0) return "errore " + std::to_string(error);
  std::string message = utf8FromWide({text.data(), length});
  while (!message.empty() && (message.back() == '\n' || message.back() == '\r')) message.pop_back();
  return message;
}

}  // namespace korvinel::platform
