#pragma once

#include <string>

#include "headless_program.h"

namespace korvinel {

/// The box after an acquisition that the operator has stopped.
inline constexpr auto sevenMinutes =
    "Attenzione: per una Analisi affidabile \roccorrono almeno 7 minuti di dati eeg!\r"
    "Per analisi finale, premere Analisi";

inline const std::string startCommandBytes = "S\x01\x04\x78\x41\x08\x42\xA5";

inline std::string lastBox(const HeadlessProgram& program) {
  return program.host.dialogs.shown.empty() ? "" : program.host.dialogs.shown.back().text;
}

inline void waitForEnd(HeadlessProgram& program) {
  program.host.time.runUntil([&] { return program.state.intervalSelectable == 1; });
}

}  // namespace korvinel
