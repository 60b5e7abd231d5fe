#pragma once

#include <memory>

#include "frame/main_state.h"
#include "platform/files.h"
#include "platform/platform.h"
#include "platform/timing.h"

namespace korvinel {

/// A loop that reads the open data file and dispatches events between blocks. An event may close the file, open another
/// or start an acquisition; the loop then ends at once and changes nothing more.
class FileLoop {
 public:
  /// Takes the file in `readHandle` and closes it at the end.
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

  /// Dispatches events; returns whether the loop may continue.
  [[nodiscard]] bool poll() {
    state_.host.events.poll();
    return !fileGone();
  }

 private:
  MainState& state_;
  std::weak_ptr<platform::InputFile> file_;
};

/// Runs "Apri File" or "Display". While a file loop is running, the command ends that loop and then runs, so that loops
/// never nest.
void runFileCommand(MainState& state, FileCommand command);

// The steps of runFileCommand.
[[nodiscard]] bool openingIsAllowed(MainState& state);  ///< if not, tells the user why
[[nodiscard]] bool replayIsAllowed(MainState& state);   ///< if not, tells the user why
void openChosenFile(MainState& state);
void replayOpenFile(MainState& state);

}  // namespace korvinel
