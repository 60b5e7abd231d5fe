#pragma once

#include <stdexcept>
#include <string>

namespace korvinel {

/// What went wrong in an operation.
enum class Fault {
  overflow,        ///< a value does not fit its field
  subscript,       ///< an index outside an array's stated bounds
  divisionByZero,  ///< a zero divisor, or a NaN result
  input,           ///< content of a file or a line that cannot be read
  output,          ///< a file or device that cannot be written
};

/// A fault of the running operation. It ends that operation, never the program, except at start-up.
/// The message is Italian and may be shown to the user.
struct RuntimeError : std::runtime_error {
  RuntimeError(Fault kind, const std::string& message) : std::runtime_error(message), fault(kind) {}
  Fault fault;
};

}  // namespace korvinel
