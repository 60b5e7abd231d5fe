#pragma once

#include <string>
#include <string_view>

#include "values/fixed.h"

namespace korvinel {

/// Numbers as text: a decimal point whatever the locale, never an exponent.

/// Shortest decimal form that reads back as the same value: "12.3", "0.5", "15", "-2".
[[nodiscard]] std::string shortestDecimal(float number);
[[nodiscard]] std::string shortestDecimal(double number);
[[nodiscard]] std::string shortestDecimal(Fixed number);

/// As shortestDecimal, but without the zero before the point of a magnitude below 1: ".5", "-.25", "2".
[[nodiscard]] std::string recordDecimal(float number);

/// The signed form: a blank in place of a minus sign: " 130", "-18".
[[nodiscard]] std::string signedText(int number);

/// The number at the start of a text, after leading blanks: "70 uV" gives 70, "abc" and "" give 0.
/// Takes a sign, digits, a point, and an exponent; a magnitude beyond the range of a double is a RuntimeError
/// (overflow).
[[nodiscard]] double leadingNumber(std::string_view text);

/// The whole text as one number, surrounding blanks ignored; a RuntimeError (input) if it is anything else:
/// empty, followed by other characters, "nan" or "inf".
[[nodiscard]] double wholeNumber(std::string_view text);

}  // namespace korvinel
