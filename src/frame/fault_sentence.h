#pragma once

#include <exception>
#include <string>

namespace korvinel {

/// One line that tells the user, in Italian, that an operation was interrupted and why: what it means in plain words,
/// then the fact itself in brackets, by which it is found in the manual.
[[nodiscard]] std::string faultSentence(const std::exception& fault);

}  // namespace korvinel
