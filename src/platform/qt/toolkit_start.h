#pragma once

#include <QApplication>
#include <memory>
#include <string>

namespace korvinel::platform {

/// Starts the toolkit. Where it finds no display, the program ends with exit code 1 and a sentence on standard error;
/// the toolkit alone would abort.
[[nodiscard]] std::unique_ptr<QApplication> startToolkit(int& count, char** arguments);

/// Why there is no window, in Italian. `display`: the X or Wayland display that the environment names, "" if none;
/// `plugin`: the way of drawing that the environment asks for, "" if none; `reason`: the toolkit's own, "" if unknown.
[[nodiscard]] std::string noDisplaySentence(const std::string& display, const std::string& plugin,
                                            const std::string& reason);

}  // namespace korvinel::platform
