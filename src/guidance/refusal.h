#pragma once

#include <string>

namespace korvinel {
struct MainState;
}

namespace korvinel::guidance {

/// A button of the main window.
enum class Command { start, stop, record, note, pair, threshold, open, replay, report, print, end };

/// Why this command, given now, does nothing or is refused, as a sentence; "" if it acts. To be asked before it is
/// given.
[[nodiscard]] std::string whyRefused(Command command, const MainState& state);

}  // namespace korvinel::guidance
