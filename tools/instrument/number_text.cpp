#include "instrument/number_text.h"

#include <charconv>
#include <sstream>
#include <stdexcept>
#include <string>

namespace korvinel::instrument {
namespace {

template <typename Number>
Number parse(std::string_view text, Number least, Number most, std::string_view what, std::string_view kind) {
  Number value{};
  const char* end = text.data() + text.size();
  const auto [stop, fault] = std::from_chars(text.data(), end, value);
  // In this form, "nan" is refused too.
  if (fault == std::errc{} && stop == end && value >= least && value <= most) return value;
  std::ostringstream message;
  message.imbue(std::locale::classic());
  message << what << " must be a " << kind << " from " << least << " to " << most << ", not '" << text << "'";
  throw std::invalid_argument(message.str());
}

}  // namespace

double numberIn(std::string_view text, double least, double most, std::string_view what) {
  return parse(text, least, most, what, "number");
}

std::int64_t wholeNumberIn(std::string_view text, std::int64_t least, std::int64_t most, std::string_view what) {
  return parse(text, least, most, what, "whole number");
}

}  // namespace korvinel::instrument
