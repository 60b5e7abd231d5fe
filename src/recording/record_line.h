#pragma once

#include <string>
#include <string_view>

namespace korvinel {

/// The lines at the head of a recording, as bytes in code page 1252 that end in CR LF. Fields are separated by single
/// commas; texts are in double quotes. As nothing in them can be escaped, a double quote is written as an apostrophe
/// and a control character as a blank.

/// A text (UTF-8) as a quoted field.
[[nodiscard]] std::string quotedField(std::string_view utf8);

/// Header of the temporary file: subject's name (UTF-8), date "dd/mm/yyyy", type tag.
[[nodiscard]] std::string temporaryHeaderLine(std::string_view subject, std::string_view date);

/// Header of a data file: subject's name (UTF-8), date and version tag "V3", type tag, number of note lines that
/// follow.
[[nodiscard]] std::string headerLine(std::string_view subject, std::string_view date, int noteCount);

/// A note: number of the block in which it was begun, text (UTF-8).
[[nodiscard]] std::string noteLine(float block, std::string_view text);

}  // namespace korvinel
