#pragma once

#include <memory>

#include "frame/main_state.h"
#include "platform/timing.h"

namespace korvinel {

/// A loop that reads the open data file and lets the user's events in between two blocks. Any of them may close the
/// file, open another or start an acquisition; the loop then leaves at once and touches nothing more.
class FileLoop {
 public:
  /// Takes the file that `readHandle` holds, and closes it in the end.
  explicit FileLoop(MainState& state) : state_(state), file_(state.readHandle) { state.fileLoopRunning = 1; }
  ~FileLoop() {
    close();
    state_.fileLoopRunning = 0;
  }
  FileLoop(const FileLoop&) = delete;
  FileLoop& operator=(const FileLoop&) = delete;

  /// Whether `readHandle` is no longer the file that this loop reads from.
  [[nodiscard]] bool fileGone() const { return file_.expired(); }
  [[nodiscard]] bool atEnd() const { return state_.readHandle->atEnd(); }
  void close() {
    if (!fileGone()) state_.readHandle.reset();
  }

  /// Lets events in; returns whether the loop may go on.
  [[nodiscard]] bool poll() {
    state_.host.events.poll();
    return !fileGone();
  }

 private:
  MainState& state_;
  std::weak_ptr<platform::InputFile> file_;
};

/// Runs "Apri File" or "Display". Given while a file loop is under way, the command ends that loop and follows it, so
/// that loops never nest.
void runFileCommand(MainState& state, FileCommand command);

// The steps of runFileCommand.
[[nodiscard]] bool openingIsAllowed(MainState& state);  ///< says why not
[[nodiscard]] bool replayIsAllowed(MainState& state);   ///< says why not
void openChosenFile(MainState& state);
void replayOpenFile(MainState& state);

}  // namespace korvinel
