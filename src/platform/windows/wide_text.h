#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace korvinel::platform {

/// The system's own texts are UTF-16. Bytes that are not UTF-8 become the replacement character.
[[nodiscard]] std::wstring wideFromUtf8(std::string_view utf8);
[[nodiscard]] std::string utf8FromWide(std::wstring_view wide);

/// The length in bytes up to the last complete character of a text.
[[nodiscard]] std::size_t wholeLetters(std::string_view utf8);

/// The system's text for an error number, in its own language, without the line end.
[[nodiscard]] std::string systemMessage(unsigned long error);

}  // namespace korvinel::platform
