#include "values/number_text.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>

#include "values/runtime_error.h"

namespace korvinel {
namespace {

constexpr std::string_view blanks = " \t";

template <typename Number>
std::string fixedNotation(Number number) {
  std::array<char, 400> buffer{};  // the longest double in this notation has about 330 characters
  const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number, std::chars_format::fixed);
  return {buffer.data(), result.ptr};
}

/// Enough to find it in the file.
std::string shortened(std::string_view text) { return std::string(text.substr(0, 40)); }

bool isDigit(char character) { return character >= '0' && character <= '9'; }

struct ParsedNumber {
  double value = 0;
  std::size_t length = 0;  ///< characters used; 0: no number
};

ParsedNumber parseNumber(std::string_view text) {
  const bool plus = text.starts_with('+');
  const std::string_view digits = plus ? text.substr(1) : text;
  const std::size_t first = digits.starts_with('-') && !plus ? 1 : 0;
  // "inf" and "nan" are not numbers here.
  if (first >= digits.size() || !(isDigit(digits[first]) || digits[first] == '.')) return {};
  ParsedNumber parsed;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), parsed.value);
  if (error == std::errc::invalid_argument) return {};
  parsed.length = static_cast<std::size_t>(end - text.data());
  if (error == std::errc::result_out_of_range) {
    // Too small becomes zero; too large is a fault.
    parsed.value = std::strtod(std::string(digits.data(), end).c_str(), nullptr);
    if (std::abs(parsed.value) > 1.0)
      throw RuntimeError(Facts{.cause = Cause::tooLargeForAnyNumber, .text = shortened(text)});
  }
  return parsed;
}

std::string_view withoutLeadingBlanks(std::string_view text) {
  const std::size_t first = text.find_first_not_of(blanks);
  return first == std::string_view::npos ? std::string_view{} : text.substr(first);
}

}  // namespace

std::string shortestDecimal(float number) { return fixedNotation(number); }

std::string shortestDecimal(double number) { return fixedNotation(number); }

std::string shortestDecimal(Fixed number) {
  const std::int64_t count = number.count();
  const auto magnitude = count < 0 ? 0 - static_cast<std::uint64_t>(count) : static_cast<std::uint64_t>(count);
  std::string text = (count < 0 ? "-" : "") + std::to_string(magnitude / Fixed::scale);
  std::string decimals = std::to_string(magnitude % Fixed::scale + Fixed::scale).substr(1);
  decimals.erase(decimals.find_last_not_of('0') + 1);
  return decimals.empty() ? text : text + "." + decimals;
}

std::string recordDecimal(float number) {
  std::string text = shortestDecimal(number);
  const std::size_t zero = text.starts_with('-') ? 1 : 0;
  if (text.substr(zero).starts_with("0.")) text.erase(zero, 1);
  return text;
}

std::string signedText(int number) { return (number < 0 ? "" : " ") + std::to_string(number); }

double leadingNumber(std::string_view text) { return parseNumber(withoutLeadingBlanks(text)).value; }

double wholeNumber(std::string_view text) {
  const std::string_view trimmed = withoutLeadingBlanks(text);
  const ParsedNumber parsed = parseNumber(trimmed);
  if (parsed.length == 0 || !withoutLeadingBlanks(trimmed.substr(parsed.length)).empty())
    throw RuntimeError(Facts{.cause = Cause::noNumber, .text = shortened(text)});
  return parsed.value;
}

}  // namespace korvinel
