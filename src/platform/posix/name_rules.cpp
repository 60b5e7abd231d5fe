#include "platform/posix/name_rules.h"

#include <unistd.h>

#include <algorithm>
#include <climits>
#include <string_view>

namespace korvinel::platform {
namespace {

constexpr std::size_t usualLimit = NAME_MAX;

std::size_t longestName(const std::string& folder) {
  const long limit = pathconf(folder.c_str(), _PC_NAME_MAX);
  return limit > 0 ? std::min(static_cast<std::size_t>(limit), usualLimit) : usualLimit;
}

/// As Windows file systems count: a letter of four bytes takes two units.
std::size_t utf16Units(std::string_view utf8) {
  std::size_t units = 0;
  for (const char byte : utf8) {
    const auto code = static_cast<unsigned char>(byte);
    const bool goesOn = (code & 0xC0U) == 0x80U;
    if (!goesOn) units += code >= 0xF0U ? 2 : 1;
  }
  return units;
}

}  // namespace

NameFault nameFaultIn(const std::string& folder, const std::string& name) {
  using namespace std::string_view_literals;
  if (name.empty() || name == "." || name == ".." || name.find_first_of("/\\\0"sv) != std::string::npos)
    return NameFault::letters;
  const bool fits =
      name.size() <= longestName(folder) && utf16Units(name) <= usualLimit && folder.size() + name.size() < PATH_MAX;
  return fits ? NameFault::none : NameFault::tooLong;
}

}  // namespace korvinel::platform
