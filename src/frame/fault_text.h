#pragma once

#include <exception>
#include <string>

#include "values/runtime_error.h"

namespace korvinel {

/// What happened, in Italian: one or more lines ("\r" between them) without a final line end.
[[nodiscard]] std::string faultText(const Facts& facts);

/// The same for any exception. One that is no RuntimeError keeps its own text.
[[nodiscard]] inline std::string faultText(const std::exception& fault) { return faultText(factsOf(fault)); }

}  // namespace korvinel
