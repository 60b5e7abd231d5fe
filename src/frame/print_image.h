#pragma once

#include <string>

namespace korvinel::platform {
struct Platform;
}

namespace korvinel {

/// Printing what the screen shows, for both windows. Failures are RuntimeErrors (output).

inline constexpr auto printPrompt = "Accendere la stampante.  Viene stampata l'immagine attuale.";

/// Asks, and after OK dispatches events for 0.2 seconds, so that the box has gone and the window is repainted.
/// `timerMark` becomes the start of that wait. Returns whether to print.
[[nodiscard]] bool confirmPrint(platform::Platform& host, const std::string& prompt, double& timerMark);

/// Copies the active window through the clipboard and prints it on one page.
void printActiveWindow(platform::Platform& host);

}  // namespace korvinel
