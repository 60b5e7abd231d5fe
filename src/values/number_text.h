#pragma once

#include <string>
#include <string_view>

#include "values/fixed.h"

namespace korvinel {

/// Numbers as text, with a point whatever the machine's locale, never with an exponent.

/// Shortest decimal form that reads back as the same value: "12.3", "0.5", "15", "-2".
[[nodiscard]] std::string shortestDecimal(float number);
[[nodiscard]] std::string shortestDecimal(double number);
[[nodiscard]] std::string shortestDecimal(Fixed number);

/// As shortestDecimal, but without the zero before the point of a magnitude below 1: ".5", "-.25", "2".
[[nodiscard]] std::string recordDecimal(float number);

/// The signed form: a blank stands where a negative number has its sign: " 130", "-18".
[[nodiscard]] std::string signedText(int number);

/// The number at the start of a text, after leading blanks: "70 uV" gives 70, "abc" and "" give 0.
/// Takes a sign, digits, a point, and an exponent; a magnitude beyond the doubles is a RuntimeError (overflow).
[[nodiscard]] double leadingNumber(std::string_view text);

/// The whole text, blanks around it aside, as one number; a RuntimeError (input) if it is anything else,
/// be it empty, followed by other characters, "nan" or "inf".
[[nodiscard]] double wholeNumber(std::string_view text);

}  // namespace korvinel
