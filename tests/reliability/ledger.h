#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "headless_program.h"
#include "recording/data_paths.h"
#include "recording/record_line.h"

namespace korvinel {

/// Keeps account of what a program records, and checks in the end that every recorded block and every confirmed note is
/// in a file that begins with the person's name. Recordings during which the disk could not be written are left to the
/// campaign against bad disks.
class Ledger {
 public:
  explicit Ledger(HeadlessProgram& program) : program_(program) {}

  /// Must be called at every step of the clock.
  void watch() {
    const MainState& state = program_.state;
    if (state.recordingActive == 0) {
      open_ = false;
      return;
    }
    if (!open_) recordings_.push_back({program_.window.subjectBox.text(), state.shared.dataFileName, {}, {}, false});
    open_ = true;
    Recording& now = recordings_.back();
    now.excused = now.excused || program_.host.files.readOnly || program_.host.files.freeSpace < 1'000'000;
    const std::size_t header = state.temporaryContent.find('\n') + 1;
    if (state.temporaryContent.size() > header + now.samples.size())
      now.samples = state.temporaryContent.substr(header);
  }

  void noteConfirmed(const std::string& text) {
    if (open_) recordings_.back().notes.push_back(text);
  }

  void fileErased(const std::string& path) {
    for (Recording& each : recordings_) each.excused = each.excused || path == dataFolder + each.fileName;
  }

  void expectAllHome(const std::string& story) const {
    for (const Recording& each : recordings_)
      if (!each.excused && !each.samples.empty() && !isHome(each))
        ADD_FAILURE() << each.samples.size() / 1036 << " blocks and " << each.notes.size() << " notes of '"
                      << each.subject << "' in " << each.fileName << " are lost\n"
                      << story << files();
  }

  [[nodiscard]] int count() const { return static_cast<int>(recordings_.size()); }

 private:
  struct Recording {
    std::string subject, fileName, samples;
    std::vector<std::string> notes;
    bool excused;
  };

  [[nodiscard]] bool isHome(const Recording& recording) const {
    const std::string line = headerLine(recording.subject, "", 0);
    const std::string person = line.substr(0, line.find("\",\" V3") + 1);
    for (const auto& [path, bytes] : program_.host.files.content) {
      bool all = bytes.starts_with(person) && bytes.ends_with(recording.samples);
      for (const std::string& note : recording.notes) all = all && bytes.find(asStored(note)) != std::string::npos;
      if (all) return true;
    }
    return false;
  }

  static std::string asStored(const std::string& note) {
    const std::string line = noteLine(1, note);
    return line.substr(line.find('"'));
  }

  [[nodiscard]] std::string files() const {
    std::string text;
    for (const auto& [path, bytes] : program_.host.files.content)
      text += "\n  " + path + " " + std::to_string(bytes.size()) + " " + bytes.substr(0, 60);
    return text;
  }

  HeadlessProgram& program_;
  std::vector<Recording> recordings_;
  bool open_ = false;
};

}  // namespace korvinel
