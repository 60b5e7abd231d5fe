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

/// The text without the characters that would break a file's lines: double quotes, commas, control characters, and
/// those that nobody can see; for a file name also path separators, the characters that file systems forbid (: * ? < >
/// |) and letters outside the page. In other texts those letters stay, so that whoever typed them can be told of them.
[[nodiscard]] std::string cleanEntry(std::string_view utf8, EntryKind kind);

/// The letters of a text that the page does not hold, each once, separated by ", "; beyond the tenth "...". "" = none.
[[nodiscard]] std::string lettersOutsidePage(std::string_view utf8);

/// Whether a text is empty or holds nothing but blanks.
[[nodiscard]] bool isBlank(std::string_view utf8);

/// Upper case within the code page ("e" with accent included), for comparing file names.
[[nodiscard]] std::string upperCase(std::string_view utf8);

}  // namespace korvinel
