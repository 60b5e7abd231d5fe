#pragma once

#include <string>

namespace korvinel {
struct MainState;
}

namespace korvinel::guidance {

/// How a line is meant; a view gives each a colour and a sign.
enum class Tone {
  calm,       ///< nothing is under way
  busy,       ///< the program works or waits
  listening,  ///< signals are seen and not recorded
  recording,
  done,     ///< something has been kept
  warning,  ///< the operator should look
  fault,
};

/// What is going on, in one line.
struct Status {
  Tone tone = Tone::calm;
  std::string text;    ///< with the running numbers
  std::string spoken;  ///< the same without them: a screen reader speaks it whenever it changes
  friend bool operator==(const Status&, const Status&) = default;
};

/// What the status line needs to know beside the record.
struct Surroundings {
  std::string serialDevice;  ///< the device behind the serial port; "" = not known
};

/// What the program is doing, waits for, or has just done. Reads the record only.
[[nodiscard]] Status statusOf(const MainState& state, const Surroundings& around);

}  // namespace korvinel::guidance
