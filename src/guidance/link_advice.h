#pragma once

#include <string>

namespace korvinel {
struct MainState;
}

namespace korvinel::guidance {

/// "COM1"
[[nodiscard]] std::string portName(const MainState& state);

/// After a communication error (`linkTrouble`): which port on which device, why, and what to do. `device`: "" = not
/// known.
[[nodiscard]] std::string linkAdvice(const MainState& state, const std::string& device);

}  // namespace korvinel::guidance
