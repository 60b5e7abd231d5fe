#pragma once

namespace korvinel::platform {

/// Ends the program: thrown by an operation, it unwinds all operations under way. It is not a std::exception, so code
/// that skips faults does not catch it.
struct ProgramEnd {};

}  // namespace korvinel::platform
