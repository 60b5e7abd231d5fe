#pragma once

#include <nlohmann/json.hpp>
#include <string>

#include "values/bounded.h"
#include "values/fixed.h"

namespace korvinel::tool {

using Json = nlohmann::ordered_json;

/// The text of a JSON document with a line end; a file name that is not UTF-8 is not an error.
[[nodiscard]] inline std::string textOf(const Json& json) {
  return json.dump(1, ' ', false, nlohmann::json::error_handler_t::replace) + "\n";
}

/// A 32-bit float as the number of its exact double value, a fixed-point value as its count of ten-thousandths.
[[nodiscard]] inline Json numberOf(float value) { return static_cast<double>(value); }
[[nodiscard]] inline Json numberOf(Fixed value) { return value.count(); }

/// Elements 1..last of a row.
template <typename Row>
[[nodiscard]] Json rowJson(const Row& row, int last) {
  Json numbers = Json::array();
  for (int i = 1; i <= last; ++i) numbers.push_back(numberOf(row[i]));
  return numbers;
}

/// Rows 1..4 (channels or pairs) of elements 1..last.
template <typename Rows>
[[nodiscard]] Json rowsJson(const Rows& rows, int last) {
  Json all = Json::array();
  for (int row = 1; row <= 4; ++row) all.push_back(rowJson(rows[row], last));
  return all;
}

/// [[time, text]] of notes 1..count.
template <typename Times, typename Texts>
[[nodiscard]] Json notesJson(int count, const Times& times, const Texts& texts) {
  Json notes = Json::array();
  for (int note = 1; note <= count; ++note) notes.push_back(Json::array({numberOf(times[note]), texts[note]}));
  return notes;
}

}  // namespace korvinel::tool
