#pragma once

#include <filesystem>
#include <string>

namespace korvinel::tool {

/// File names are UTF-8 in the tool; on Windows the standard library would convert them differently.
[[nodiscard]] inline std::filesystem::path pathOf(const std::string& utf8) {
  return {std::u8string(utf8.begin(), utf8.end())};
}

[[nodiscard]] inline std::string utf8Of(const std::u8string& text) { return {text.begin(), text.end()}; }
[[nodiscard]] inline std::string utf8Of(const std::filesystem::path& path) { return utf8Of(path.u8string()); }

/// With the separator "/" on every system.
[[nodiscard]] inline std::string genericUtf8Of(const std::filesystem::path& path) {
  return utf8Of(path.generic_u8string());
}

}  // namespace korvinel::tool
