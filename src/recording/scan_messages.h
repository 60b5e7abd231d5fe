#pragma once

namespace korvinel {

struct MainState;

/// What "Apri File" shows before and after a scan, or instead of a scanned file.

void announceReading(MainState& state);
void showScannedFile(MainState& state);  ///< graphs, labels and the summary on the message panel
void showThatItWasStopped(MainState& state);
void tellReadFault(MainState& state);  ///< if the file could not be read to its end: where, and why

}  // namespace korvinel
