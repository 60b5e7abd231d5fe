#pragma once

#include <string>
#include <string_view>

#include "values/entry_kind.h"

namespace korvinel {

/// Texts inside the program are UTF-8; the data files hold single bytes in code page 1252.

/// Every byte has a character: the five codes that the page leaves undefined stand for the control characters of the
/// same number, so that any byte string survives conversion to UTF-8 and back.
[[nodiscard]] std::string utf8FromCodePage(std::string_view bytes);

/// The bytes of a UTF-8 text; a character outside the page, or a byte that is not UTF-8, becomes "?".
[[nodiscard]] std::string codePageFromUtf8(std::string_view utf8);

/// The text without the characters that would break a file's lines: double quotes, commas, control characters, and
/// invisible ones; for a file name also path separators, the characters that file systems forbid (: * ? < > |) and
/// letters outside the page. In other texts those letters stay, so that they can be reported to the user.
[[nodiscard]] std::string cleanEntry(std::string_view utf8, EntryKind kind);

/// The letters of a text that are not in the page, each once, separated by ", "; after the tenth "...". "" = none.
[[nodiscard]] std::string lettersOutsidePage(std::string_view utf8);

/// Whether the bytes are characters in UTF-8 throughout.
[[nodiscard]] bool isUtf8(std::string_view bytes);

/// Whether a text is empty or blank.
[[nodiscard]] bool isBlank(std::string_view utf8);

/// Upper case within the code page ("e" with accent included), for comparing file names.
[[nodiscard]] std::string upperCase(std::string_view utf8);

}  // namespace korvinel
