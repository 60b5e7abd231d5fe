#pragma once

#include <exception>
#include <string>

#include "values/runtime_error.h"

namespace korvinel::tool {

/// Why an operation failed, in English, to stand behind "FILE: cannot be read: ". Names no file, which stands in front,
/// but other places: "item 3 (a calibration factor) is missing or not valid: the file ends too early".
[[nodiscard]] std::string reasonOf(const Facts& facts);
[[nodiscard]] inline std::string reasonOf(const std::exception& fault) { return reasonOf(factsOf(fault)); }

/// The same with the file or folder in front, if there is one: "/a/b: No such file or directory".
[[nodiscard]] std::string faultText(const std::exception& fault);

}  // namespace korvinel::tool
