#pragma once

#include <string>
#include <string_view>

namespace korvinel::tool {

/// A text of code page 1252 (in UTF-8) for a field that allows printable ASCII only: accents are dropped, ligatures are
[[nodiscard]] std::string asciiForm(std::string_view utf8);

/// The beginning of a UTF-8 text, at most `most` bytes (4 or more), never cut inside a character.
[[nodiscard]] std::string firstPiece(std::string_view utf8, std::size_t most);

}  // namespace korvinel::tool
