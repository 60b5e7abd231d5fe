#pragma once

#include <string>
#include <string_view>

namespace korvinel {

/// The first field of each kind of line in a side file.
constexpr auto sideFileOwner = "temporaneo";
constexpr auto sideFileNames = "nomi";
constexpr auto sideFileNoteCount = "note";
constexpr auto sideFileNote = "nota";

/// Check number 0..65535, by which a truncated or damaged line is recognised.
[[nodiscard]] constexpr unsigned checkNumber(std::string_view fields) {
  unsigned number = 0;
  for (const char byte : fields) number = (number * 31 + static_cast<unsigned char>(byte)) % 65536;
  return number;
}
static_assert(checkNumber("\"note\",1") == 28051);

/// The fields, then their check number and CR LF.
[[nodiscard]] inline std::string checkedLine(const std::string& fields) {
  return fields + "," + std::to_string(checkNumber(fields)) + "\r\n";
}

}  // namespace korvinel
