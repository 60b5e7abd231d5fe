#include "values/code_page.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <vector>

namespace korvinel {
namespace {

using CodePoint = std::uint32_t;
constexpr CodePoint invalid = 0xFFFFFFFF;

// Characters of the bytes 0x80..0x9F; all other bytes equal their character's number.
constexpr std::array<CodePoint, 32> upperControls = {0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                     0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x8D,   0x017D, 0x8F,
                                                     0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                     0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};

CodePoint characterOf(unsigned char byte) { return byte >= 0x80 && byte <= 0x9F ? upperControls[byte - 0x80U] : byte; }

/// The byte of a character, or -1 outside the page.
int byteOf(CodePoint character) {
  if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) return static_cast<int>(character);
  const auto* const found = std::find(upperControls.begin(), upperControls.end(), character);
  return found == upperControls.end() ? -1 : 0x80 + static_cast<int>(found - upperControls.begin());
}

void appendUtf8(std::string& text, CodePoint character) {
  const auto put = [&text](CodePoint byte) { text += static_cast<char>(static_cast<unsigned char>(byte)); };
  if (character < 0x80) return put(character);
  if (character < 0x800) {
    put(0xC0 | (character >> 6));
  } else if (character < 0x10000) {
    put(0xE0 | (character >> 12));
    put(0x80 | ((character >> 6) & 0x3F));
  } else {
    put(0xF0 | (character >> 18));
    put(0x80 | ((character >> 12) & 0x3F));
    put(0x80 | ((character >> 6) & 0x3F));
  }
  put(0x80 | (character & 0x3F));
}

int sequenceLength(unsigned char lead) {
  if (lead < 0x80) return 1;
  if (lead >= 0xC2 && lead <= 0xDF) return 2;
  if (lead >= 0xE0 && lead <= 0xEF) return 3;
  if (lead >= 0xF0 && lead <= 0xF4) return 4;
  return 0;
}

/// Removes and returns the next character of the text; `invalid` for a byte that belongs to none.
CodePoint takeCharacter(std::string_view& text) {
  const auto lead = static_cast<unsigned char>(text.front());
  const int length = sequenceLength(lead);
  if (length == 0 || text.size() < static_cast<std::size_t>(length)) return text.remove_prefix(1), invalid;
  CodePoint character = length == 1 ? lead : lead & (0x7FU >> static_cast<unsigned>(length));
  for (std::size_t i = 1; i < static_cast<std::size_t>(length); ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    if ((byte & 0xC0U) != 0x80U) return text.remove_prefix(1), invalid;
    character = (character << 6) | (byte & 0x3FU);
  }
  text.remove_prefix(static_cast<std::size_t>(length));
  return character;
}

bool isControl(CodePoint character) { return character < 0x20 || (character >= 0x7F && character <= 0x9F); }

/// Direction marks, joiners and zero-width blanks, which often come with pasted text.
bool isInvisible(CodePoint character) {
  return (character >= 0x200B && character <= 0x200F) || (character >= 0x2028 && character <= 0x202E) ||
         (character >= 0x2060 && character <= 0x206F) || character == 0xFEFF;
}

bool isAccepted(CodePoint character, EntryKind kind) {
  constexpr std::string_view neverInFields = "\",";
  constexpr std::string_view neverInNames = "/\\:*?<>|";
  if (character == invalid || isControl(character) || isInvisible(character)) return false;
  if (character > 0x7F) return kind != EntryKind::fileName || byteOf(character) >= 0;
  const char plain = static_cast<char>(character);
  if (neverInFields.find(plain) != std::string_view::npos) return false;
  return kind != EntryKind::fileName || neverInNames.find(plain) == std::string_view::npos;
}

CodePoint upperOf(CodePoint character) {
  if ((character >= 'a' && character <= 'z') || (character >= 0xE0 && character <= 0xFE && character != 0xF7))
    return character - 0x20;
  switch (character) {
    case 0xFF: return 0x178;
    case 0x161: return 0x160;
    case 0x153: return 0x152;
    case 0x17E: return 0x17D;
    default: return character;
  }
}

}  // namespace

std::string utf8FromCodePage(std::string_view bytes) {
  std::string text;
  for (const char byte : bytes) appendUtf8(text, characterOf(static_cast<unsigned char>(byte)));
  return text;
}

std::string codePageFromUtf8(std::string_view utf8) {
  std::string bytes;
  while (!utf8.empty()) {
    const CodePoint character = takeCharacter(utf8);
    const int byte = character == invalid ? -1 : byteOf(character);
    bytes += byte < 0 ? '?' : static_cast<char>(static_cast<unsigned char>(byte));
  }
  return bytes;
}

bool isUtf8(std::string_view bytes) {
  while (!bytes.empty())
    if (takeCharacter(bytes) == invalid) return false;
  return true;
}

std::string cleanEntry(std::string_view utf8, EntryKind kind) {
  std::string clean;
  while (!utf8.empty()) {
    const CodePoint character = takeCharacter(utf8);
    if (isAccepted(character, kind)) appendUtf8(clean, character);
  }
  return clean;
}

std::string lettersOutsidePage(std::string_view utf8) {
  constexpr std::size_t most = 10;
  std::vector<CodePoint> letters;
  while (!utf8.empty()) {
    const CodePoint character = takeCharacter(utf8);
    const bool known = std::find(letters.begin(), letters.end(), character) != letters.end();
    if (character != invalid && byteOf(character) < 0 && !known) letters.push_back(character);
  }
  std::string list;
  for (std::size_t i = 0; i < std::min(letters.size(), most); ++i) {
    if (i > 0) list += ", ";
    appendUtf8(list, letters[i]);
  }
  return letters.size() > most ? list + "..." : list;
}

bool isBlank(std::string_view utf8) {
  constexpr CodePoint noBreakSpace = 0xA0;
  while (!utf8.empty())
    if (const CodePoint character = takeCharacter(utf8); character != ' ' && character != noBreakSpace) return false;
  return true;
}

std::string upperCase(std::string_view utf8) {
  std::string upper;
  while (!utf8.empty()) {
    const CodePoint character = takeCharacter(utf8);
    if (character <= 0xFFFF) appendUtf8(upper, upperOf(character));  // `invalid` is above
  }
  return upper;
}

}  // namespace korvinel
