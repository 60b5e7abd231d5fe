#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <fstream>
#include <iterator>
#include <nlohmann/json.hpp>
#include <string>

#include "values/fixed.h"

namespace korvinel::golden {

/// The reference numbers of tests/data/golden, calculated independently of this program. Their arrays hold only the
/// indexes in use: row and column 0 are index 1.

using Json = nlohmann::json;

inline std::string fileBytes(const std::string& name) {
  std::ifstream file(std::string(KORVINEL_TEST_DATA) + "/golden/" + name, std::ios::binary);
  EXPECT_TRUE(file) << name;
  return {std::istreambuf_iterator<char>(file), {}};
}

inline Json reference(const std::string& name) { return Json::parse(fileBytes(name)); }

inline std::string bytesOfHex(const std::string& hex) {
  std::string bytes;
  for (std::size_t i = 0; i + 1 < hex.size(); i += 2)
    bytes += static_cast<char>(std::stoi(hex.substr(i, 2), nullptr, 16));
  return bytes;
}

/// Whether a 32-bit float equals the reference value exactly.
inline bool agrees(float actual, const Json& expected) { return static_cast<double>(actual) == expected.get<double>(); }
inline bool agrees(Fixed actual, const Json& expected) { return actual.count() == expected.get<std::int64_t>(); }

inline std::string text(float value) { return std::to_string(value); }
inline std::string text(Fixed value) { return std::to_string(value.count()); }

/// Compares every element of a row, `actual` from index 1; reports the first that differs.
template <typename Row>
void expectRow(const Row& actual, const Json& expected, const std::string& where) {
  ASSERT_FALSE(expected.empty()) << where;
  for (int i = 1; i <= static_cast<int>(expected.size()); ++i) {
    const Json& reference = expected[static_cast<std::size_t>(i) - 1];
    ASSERT_TRUE(agrees(actual[i], reference))
        << where << " [" << i << "] is " << text(actual[i]) << ", not " << reference;
  }
}

/// Compares rows 1..4, channels or pairs.
template <typename Rows>
void expectRows(const Rows& actual, const Json& expected, const std::string& where) {
  ASSERT_EQ(expected.size(), 4U) << where;
  for (int row = 1; row <= 4; ++row)
    expectRow(actual[row], expected[static_cast<std::size_t>(row) - 1], where + " row " + std::to_string(row));
}

}  // namespace korvinel::golden
