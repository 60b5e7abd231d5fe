#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "values/fixed.h"
#include "values/number_text.h"

namespace korvinel::tool {

/// A field of a CSV file: in double quotes (doubled inside) where it holds a comma, a quote or a line end.
[[nodiscard]] inline std::string csvField(std::string_view text) {
  if (text.find_first_of(",\"\r\n") == std::string_view::npos) return std::string(text);
  std::string field = "\"";
  for (const char c : text) field += c == '"' ? "\"\"" : std::string(1, c);
  return field + "\"";
}

/// One line of a CSV file, field by field.
class CsvLine {
 public:
  CsvLine& add(std::string_view text) {
    if (!empty_) line_ += ',';
    empty_ = false;
    line_ += csvField(text);
    return *this;
  }
  CsvLine& add(const char* text) { return add(std::string_view(text)); }
  CsvLine& add(int number) { return add(std::to_string(number)); }
  CsvLine& add(float number) { return add(shortestDecimal(number)); }
  CsvLine& add(double number) { return add(shortestDecimal(number)); }
  CsvLine& add(Fixed number) { return add(shortestDecimal(number)); }

  [[nodiscard]] const std::string& text() const { return line_; }
  [[nodiscard]] std::string ended() const { return line_ + "\n"; }

 private:
  bool empty_ = true;
  std::string line_;
};

inline constexpr const char* channelNames[] = {"", "F1", "F2", "T5", "T6"};
inline constexpr const char* pairNames[] = {"", "F1-F2", "T5-T6", "F1-T5", "F2-T6"};

}  // namespace korvinel::tool
