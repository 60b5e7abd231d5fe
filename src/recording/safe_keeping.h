#pragma once

#include <functional>
#include <string>

#include "frame/main_state.h"

namespace korvinel {

/// What keeps a recording from being lost where a disk fails: every writing step runs through attemptWrite, and a
/// temporary file that may hold what the data file lacks is renamed instead of deleted.

/// Runs one step of recording or assembling; a fault skips it, and the first cause is kept in `recordingFault`. Returns
/// whether the step went through.
bool attemptWrite(MainState& state, const std::function<void()>& step);

/// Writes to the temporary file what is not yet in it. After a write that failed part of the way the next one goes on
/// at the very byte, so that no channel record is ever shifted; a file that has vanished is written anew.
/// `synchronised`: puts it on the disk, too. A RuntimeError (output) where it fails again.
void completeTemporaryFile(MainState& state, bool synchronised);

/// Whether a temporary file is there that holds more than its header line.
[[nodiscard]] bool leftOverTemporaryFile(platform::Files& files);

/// Gives the temporary file a name with date and time, and its side file the same with the ending ".NOT". Returns the
/// new path of the temporary file; a RuntimeError (output) if one of them cannot be renamed: then neither is.
std::string setTemporaryFileAside(MainState& state);

/// Gives a side file whose temporary file is gone such a name, so that a new one does not take its place.
void setLonelySideFileAside(MainState& state);

/// Deletes the temporary file and its side file, as far as that is possible.
void removeTemporaryFile(platform::Files& files);

/// As above, but never throws: what cannot be renamed stays where it is, and of a file that has vanished the content is
/// written again from memory. Returns where the data are now, "" if nowhere.
std::string keepRecordedData(MainState& state);

/// When the program ends in mid-recording (Cancel in a communication error, End right after Stop): writes the data file
/// without letting events in. Nothing happens while recording is off or the file is being written already.
void bringRecordingHome(MainState& state);

/// Tells the user what failed while recording or assembling and where the data are; nothing if nothing failed.
void tellRecordingFault(MainState& state);

}  // namespace korvinel
