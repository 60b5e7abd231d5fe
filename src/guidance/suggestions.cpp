#include "guidance/suggestions.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "values/code_page.h"

namespace korvinel::guidance {
namespace {

/// Of one character, in UTF-8.
constexpr bool continuesCharacter(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; }

std::size_t lettersIn(std::string_view utf8) {
  return static_cast<std::size_t>(
      std::count_if(utf8.begin(), utf8.end(), [](char byte) { return !continuesCharacter(byte); }));
}

/// "dd/mm/yyyy" in the order of time.
std::string sortableDay(const std::string& date) {
  constexpr std::size_t length = 10;
  return date.size() < length ? "" : date.substr(6, 4) + date.substr(3, 2) + date.substr(0, 2);
}

/// How many bytes two texts have in common, in whole characters.
std::size_t commonLength(std::string_view first, std::string_view second) {
  const auto [end, other] = std::mismatch(first.begin(), first.end(), second.begin(), second.end());
  auto length = static_cast<std::size_t>(end - first.begin());
  while (length > 0 && length < first.size() && continuesCharacter(first[length])) --length;
  return length;
}

/// The letter or digit of a file name for a byte of the code page, without accent; '-' for what is neither.
char plainLetter(char byte) {
  // Of the capitals from code C0 and of the small letters from code E0.
  constexpr std::array<char, 32> accented = {'a', 'a', 'a', 'a', 'a', 'a', 'a', 'c', 'e', 'e', 'e',
                                             'e', 'i', 'i', 'i', 'i', 'd', 'n', 'o', 'o', 'o', 'o',
                                             'o', '-', 'o', 'u', 'u', 'u', 'u', 'y', 't', 'y'};
  const auto code = static_cast<unsigned char>(byte);
  if (code == 0xDF) return 's';
  if (code >= 0xC0) return accented[code & 0x1FU];
  if (byte >= 'A' && byte <= 'Z') return static_cast<char>(byte - 'A' + 'a');
  if ((byte >= 'a' && byte <= 'z') || (byte >= '0' && byte <= '9')) return byte;
  switch (code) {
    case 0x8A:
    case 0x9A: return 's';
    case 0x8C:
    case 0x9C: return 'o';
    case 0x8E:
    case 0x9E: return 'z';
    case 0x9F: return 'y';
    default: return '-';
  }
}

/// "D'Angelo, Niccolò" -> "d-angelo-niccolo".
std::string plainName(std::string_view subject) {
  constexpr std::size_t longest = 60;
  std::string name;
  for (const char byte : codePageFromUtf8(subject)) {
    const char letter = plainLetter(byte);
    if (letter != '-' || (!name.empty() && name.back() != '-')) name += letter;
  }
  name.resize(std::min(name.size(), longest));
  while (name.ends_with('-')) name.pop_back();
  return name;
}

}  // namespace

void KnownSubjects::add(const std::string& subject, const std::string& date) {
  if (isBlank(subject)) return;
  Known& known = byName_[upperCase(subject)];
  if (const std::string day = sortableDay(date); known.spelling.empty() || day >= known.day) known = {subject, day};
}

std::string KnownSubjects::completionOf(std::string_view typed) const {
  constexpr std::size_t fewest = 2;
  const std::string begin = upperCase(typed);
  if (lettersIn(begin) < fewest || byName_.contains(begin)) return "";
  const auto first = byName_.lower_bound(begin);
  if (first == byName_.end()) return "";
  const auto* latest = &first->second;
  std::size_t length = 0;
  for (auto last = first; last != byName_.end() && last->first.starts_with(begin); ++last) {
    // The names are sorted: what the first and the last have in common, all have.
    length = commonLength(first->first, last->first);
    if (last->second.day > latest->day) latest = &last->second;
  }
  return length <= begin.size() ? "" : latest->spelling.substr(0, length);
}

std::string suggestedFileName(std::string_view subject, const platform::CalendarTime& day,
                              const std::function<bool(const std::string&)>& isUsable) {
  const std::string name = plainName(subject);
  if (name.empty()) return "";
  std::array<char, 40> date{};
  std::snprintf(date.data(), date.size(), "-%04d-%02d-%02d", day.year, day.month, day.day);
  std::string whole = name + date.data();
  constexpr int mostInADay = 99;
  if (isUsable(whole)) return whole;
  for (int copy = 2; copy <= mostInADay; ++copy)
    if (std::string numbered = whole + "-" + std::to_string(copy); isUsable(numbered)) return numbered;
  return "";
}

std::string restOf(std::string_view suggestion, std::string_view typed) {
  if (suggestion.size() <= typed.size() || upperCase(suggestion.substr(0, typed.size())) != upperCase(typed)) return "";
  return std::string(suggestion.substr(typed.size()));
}

}  // namespace korvinel::guidance
