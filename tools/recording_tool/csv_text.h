#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "values/fixed.h"
#include "values/number_text.h"

namespace korvinel::tool {

/// A text that no spreadsheet takes for a formula: where apostrophes and blanks are followed by =, +, - or @, at its
/// beginning or after a semicolon, tab or line end (where a cell begins for some), one more apostrophe is inserted in
/// front. Readers of the table remove one apostrophe at the same places.
[[nodiscard]] inline std::string plainText(std::string_view text) {
  std::string plain;
  bool cellBegins = true;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const std::size_t first = cellBegins ? text.find_first_not_of("' ", i) : std::string_view::npos;
    if (first != std::string_view::npos && std::string_view("=+-@").find(text[first]) != std::string_view::npos)
      plain += '\'';
    plain += text[i];
    cellBegins = std::string_view(";\t\r\n").find(text[i]) != std::string_view::npos;
  }
  return plain;
}

/// A field of a CSV file: in double quotes (doubled inside) if it contains a comma, a quote or a line end.
[[nodiscard]] inline std::string csvField(std::string_view text) {
  if (text.find_first_of(",\"\r\n") == std::string_view::npos) return std::string(text);
  std::string field = "\"";
  for (const char c : text) field += c == '"' ? "\"\"" : std::string(1, c);
  return field + "\"";
}

/// One line of a CSV file, field by field.
class CsvLine {
 public:
  CsvLine& add(std::string_view text) { return addField(csvField(plainText(text))); }
  CsvLine& add(const char* text) { return add(std::string_view(text)); }
  CsvLine& add(int number) { return addField(std::to_string(number)); }
  CsvLine& add(float number) { return addField(shortestDecimal(number)); }
  CsvLine& add(double number) { return addField(shortestDecimal(number)); }
  CsvLine& add(Fixed number) { return addField(shortestDecimal(number)); }

  [[nodiscard]] const std::string& text() const { return line_; }
  [[nodiscard]] std::string ended() const { return line_ + "\n"; }

 private:
  CsvLine& addField(const std::string& field) {
    if (!empty_) line_ += ',';
    empty_ = false;
    line_ += field;
    return *this;
  }

  bool empty_ = true;
  std::string line_;
};

}  // namespace korvinel::tool
