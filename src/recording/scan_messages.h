#pragma once

#include <string>

namespace korvinel {

struct MainState;

/// What "Apri File" shows before and after a scan, or instead of a scanned file.

void announceReading(MainState& state);
void showScannedFile(MainState& state);  ///< graphs, labels and the summary on the message panel
void showThatItWasStopped(MainState& state);
/// Reports that the file could not be read beyond `block`, and why.
void tellReadFault(MainState& state, int block, const std::string& fault);

}  // namespace korvinel
