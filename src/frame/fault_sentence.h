#pragma once

#include <exception>
#include <string>

namespace korvinel {

/// One line in Italian saying that an operation was interrupted and why: the meaning in plain words, then the fault's
/// own text in brackets, which can be looked up in the manual.
[[nodiscard]] std::string faultSentence(const std::exception& fault);

}  // namespace korvinel
