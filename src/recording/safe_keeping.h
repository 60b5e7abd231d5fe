#pragma once

#include <cstddef>
#include <functional>
#include <string>

namespace korvinel::platform {
struct Files;
}

namespace korvinel {

struct MainState;

/// Keeps a recording from being lost when a disk fails: every writing step runs through attemptWrite, and a temporary
/// file that may hold what the data file lacks is renamed instead of deleted.

/// Runs one step of recording or assembling; a fault skips it, and the first cause is kept in `recordingFault`. Returns
/// whether the step succeeded.
bool attemptWrite(MainState& state, const std::function<void()>& step);

/// Writes to the temporary file what is not yet in it. After a partial write the next one continues at exactly the next
/// byte, so that no channel record is ever shifted; a file that has vanished is rewritten. `synchronised`: also forces
/// it onto the disk. A RuntimeError (output) if it fails again.
void completeTemporaryFile(MainState& state, bool synchronised);

/// Bytes of the header line in `temporaryContent`; the blocks follow it.
[[nodiscard]] std::size_t recordedHeaderBytes(const MainState& state);

/// Whether a temporary file exists that holds more than its header line.
[[nodiscard]] bool leftOverTemporaryFile(platform::Files& files);

/// Renames the temporary file with date and time, and its side file to the same name with the ending ".NOT". Returns
/// the new path of the temporary file; a RuntimeError (output) if one of them cannot be renamed: then neither is.
std::string setTemporaryFileAside(MainState& state);

/// The same with a temporary file that an earlier run has left: if a crash has renamed its side file already, it gets
/// the name that goes with that.
std::string setLeftOverFileAside(MainState& state);

/// Renames in the same way a side file without a temporary file, so that a new one does not replace it.
void setLonelySideFileAside(MainState& state);

/// Renames in the same way whatever has the temporary file's name, unless it is only a beginning of what was recorded,
/// and adds the new path to `foreignPaths`. The side file does not belong to it and stays. A RuntimeError (output) if
/// it cannot be renamed.
void setForeignFileAside(MainState& state);

/// Deletes the temporary file and its side file, as far as possible.
void removeTemporaryFile(platform::Files& files);

/// Completes the temporary file and its side file as far as there is room, and sets them aside; what cannot be renamed
/// stays where it is. Returns the new path of the temporary file, "" if there is none. Never a fault.
std::string keepRecordedData(MainState& state);

/// Whether the files left by keepRecordedData hold all blocks and all notes.
[[nodiscard]] bool recordedDataAreKept(const MainState& state);

/// Adds a line to what the user is told at the end of the recording.
void addNotice(MainState& state, const std::string& line);

}  // namespace korvinel
