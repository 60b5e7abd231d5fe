#include "recording_tool/ascii_form.h"

#include <array>

#include "values/code_page.h"

namespace korvinel::tool {
namespace {

/// Codes 128 to 255 of the code page.
constexpr std::array<const char*, 128> likeness = {
    "EUR", "?",  "'", "f",  "\"", "...", "+",  "+", "^",  "%",   "S", "<",  "OE",  "?",   "Z",   "?",   //
    "?",   "'",  "'", "\"", "\"", "*",   "-",  "-", "~",  "TM",  "s", ">",  "oe",  "?",   "z",   "Y",   //
    " ",   "!",  "c", "L",  "?",  "Y",   "|",  "S", "\"", "(c)", "a", "<<", "-",   "-",   "(r)", "-",   //
    "o",   "+-", "2", "3",  "'",  "u",   "P",  ".", ",",  "1",   "o", ">>", "1/4", "1/2", "3/4", "?",   //
    "A",   "A",  "A", "A",  "A",  "A",   "AE", "C", "E",  "E",   "E", "E",  "I",   "I",   "I",   "I",   //
    "D",   "N",  "O", "O",  "O",  "O",   "O",  "x", "O",  "U",   "U", "U",  "U",   "Y",   "Th",  "ss",  //
    "a",   "a",  "a", "a",  "a",  "a",   "ae", "c", "e",  "e",   "e", "e",  "i",   "i",   "i",   "i",   //
    "d",   "n",  "o", "o",  "o",  "o",   "o",  "/", "o",  "u",   "u", "u",  "u",   "y",   "th",  "y"};

bool continuesCharacter(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) == 0x80; }

}  // namespace

std::string asciiForm(std::string_view utf8) {
  std::string text;
  for (const char byte : codePageFromUtf8(utf8)) {
    const auto code = static_cast<unsigned char>(byte);
    if (code >= 128)
      text += likeness[code - 128U];
    else
      text += code < 32 || code == 127 ? ' ' : byte;
  }
  return text;
}

std::string firstPiece(std::string_view utf8, std::size_t most) {
  std::size_t length = std::min(most, utf8.size());
  while (length > 0 && length < utf8.size() && continuesCharacter(utf8[length])) --length;
  return std::string(utf8.substr(0, length == 0 ? std::min(most, utf8.size()) : length));
}

}  // namespace korvinel::tool
