#pragma once

#include <string>

#include "frame/main_state.h"

namespace korvinel {

/// What "Apri File" shows before, after and instead of a scanned file.

void announceReading(MainState& state);
void showScannedFile(MainState& state);  ///< graphs, labels and the summary on the message panel
void showThatItWasStopped(MainState& state);
/// Says that the file could not be read beyond `block`, and why.
void tellReadFault(MainState& state, int block, const std::string& fault);

}  // namespace korvinel
