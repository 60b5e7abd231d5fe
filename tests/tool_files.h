#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "temporary_folder.h"

namespace korvinel::tool {

using platform::TemporaryFolder;

inline std::string goldenPath(const std::string& name) { return std::string(KORVINEL_TEST_DATA) + "/golden/" + name; }

inline std::string bytesOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  EXPECT_TRUE(file) << path;
  return {std::istreambuf_iterator<char>(file), {}};
}

inline std::string writeFile(const std::string& path, const std::string& bytes) {
  std::ofstream(path, std::ios::binary) << bytes;
  return path;
}

/// The number of entries in a folder; shows whether a half-written file is left.
inline int entriesIn(const std::string& folder) {
  return static_cast<int>(std::distance(std::filesystem::directory_iterator(folder), {}));
}

/// The message of the error thrown by an act, "" if none.
template <typename Act>
std::string errorOf(Act&& act) {
  try {
    act();
  } catch (const std::exception& error) {
    return error.what();
  }
  return "";
}

}  // namespace korvinel::tool
