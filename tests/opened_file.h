#pragma once

#include <string>
#include <vector>

#include "headless_program.h"
#include "recordings.h"

namespace korvinel {

/// A program with a file on its disk that can be opened through the dialog.
struct FileProgram : HeadlessProgram {
  explicit FileProgram(const std::string& bytes = recordings::file(10), const std::string& name = "esame.QVD")
      : path(recordings::folder + name) {
    state.startUp();
    host.files.content[path] = bytes;
    window.firstTrace.onChanged = [this] { noteShownLevel(); };
  }

  /// Presses "Apri File" and chooses the file; returns when the scan is over.
  void open() {
    host.dialogs.files.push_back(path);
    window.Openx.press();
  }

  std::string path;
  std::vector<int> shown;  ///< the levels of channel 1 shown by the traces, one entry for each change

 private:
  void noteShownLevel() {
    const int level = static_cast<int>(state.sampleBlock[1][1]);
    if (state.fileLoopRunning == 1 && (shown.empty() || shown.back() != level)) shown.push_back(level);
  }
};

}  // namespace korvinel
