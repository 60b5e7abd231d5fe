#pragma once

#include <stdexcept>
#include <string>

namespace korvinel {

/// What went wrong in an operation.
enum class Fault {
  overflow,        ///< a value does not fit its 16-bit or fixed-point field
  subscript,       ///< an index outside an array's stated bounds
  divisionByZero,  ///< a quotient with a zero divisor, or a result that is no number
  input,           ///< a file or a line whose content cannot be read
  output,          ///< a file or device that does not take what is written
};

/// A fault of the running operation. It ends that operation, never the program, except at start-up.
/// The message is Italian and may be shown to the user.
struct RuntimeError : std::runtime_error {
  RuntimeError(Fault kind, const std::string& message) : std::runtime_error(message), fault(kind) {}
  Fault fault;
};

}  // namespace korvinel
