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

/// Bytes of the header line in `temporaryContent`; the blocks stand behind it.
[[nodiscard]] std::size_t recordedHeaderBytes(const MainState& state);

/// Whether a temporary file is there that holds more than its header line.
[[nodiscard]] bool leftOverTemporaryFile(platform::Files& files);

/// Gives the temporary file a name with date and time, and its side file the same with the ending ".NOT". Returns the
/// new path of the temporary file; a RuntimeError (output) if one of them cannot be renamed: then neither is.
std::string setTemporaryFileAside(MainState& state);

/// Gives a side file whose temporary file is gone such a name, so that a new one does not take its place.
void setLonelySideFileAside(MainState& state);

/// Gives what lies in the temporary file's place such a name, and keeps that in `foreignPaths`, unless it is nothing
/// but a beginning of what was recorded. The side file, which is not its own, stays. A RuntimeError (output) if it
/// cannot be renamed.
void setForeignFileAside(MainState& state);

/// Deletes the temporary file and its side file, as far as that is possible.
void removeTemporaryFile(platform::Files& files);

/// Makes the temporary file and its side file hold what was recorded as far as there is room, and sets them aside; what
/// cannot be renamed stays where it is. Returns where the temporary file is now, "" if nowhere. Never a fault.
std::string keepRecordedData(MainState& state);

/// Whether the files that keepRecordedData has left hold all blocks and all notes.
[[nodiscard]] bool recordedDataAreKept(const MainState& state);

}  // namespace korvinel
