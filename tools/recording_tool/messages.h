#pragma once

#include <exception>
#include <string>

namespace korvinel::tool {

/// Prints a remark, not an error, on standard error: "FILE: note".
void tell(const std::string& file, const std::string& note);

/// Prints the line of an error on standard error.
void tellError(const std::exception& error);

}  // namespace korvinel::tool
