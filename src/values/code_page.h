#pragma once

#include <string>
#include <string_view>

namespace korvinel {

/// Texts inside the program are UTF-8; the data files hold single bytes in code page 1252.

/// Every byte has a character: the five codes that the page leaves open stand for the control characters of the
/// same number, so that any byte string survives the way to UTF-8 and back.
[[nodiscard]] std::string utf8FromCodePage(std::string_view bytes);

/// The bytes of a UTF-8 text; a character outside the page, or a byte that is no UTF-8, becomes "?".
[[nodiscard]] std::string codePageFromUtf8(std::string_view utf8);

/// What a box accepts as input that ends in a data file or in its name.
enum class EntryKind { text, fileName };

/// The text without the characters that the files cannot hold: double quotes, commas, control characters, characters
/// outside the page; for a file name also path separators and the characters that file systems forbid (: * ? < > |).
[[nodiscard]] std::string cleanEntry(std::string_view utf8, EntryKind kind);

/// Upper case within the code page ("e" with accent included), for comparing file names.
[[nodiscard]] std::string upperCase(std::string_view utf8);

}  // namespace korvinel
