#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korvinel::guidance {

/// The client area of a window on the desktop, in logical pixels.
struct WindowPlace {
  int x = 0, y = 0;           ///< -32768..32767; other screens may be left of or above the first
  int width = 0, height = 0;  ///< 1..32767
  bool maximised = false;
  bool operator==(const WindowPlace&) const = default;
};

/// What one user has set, for all sessions; nothing about a patient. The defaults are those of a first start.
struct Settings {
  std::optional<WindowPlace> mainWindow, reportWindow;  ///< none: never moved
  bool sounds = true;                                   ///< soft sounds at seven minutes, the end, a lost instrument
  std::vector<std::string> quickNotes{"occhi chiusi", "occhi aperti", "movimento", "tosse"};  ///< none blank, no ";"
  bool firstPageDismissed = false;
  std::vector<std::string> otherLines;  ///< comments and entries that this version does not know; they are kept
  bool operator==(const Settings&) const = default;
};

/// Reads lines "key=value" (UTF-8, also with a byte order mark and CR LF). None if the bytes are damaged: not UTF-8, a
/// line of another form, or an impossible value of a known key.
[[nodiscard]] std::optional<Settings> parseSettings(std::string_view bytes);

/// The file that parseSettings reads back to the same settings.
[[nodiscard]] std::string settingsText(const Settings& settings);

}  // namespace korvinel::guidance
