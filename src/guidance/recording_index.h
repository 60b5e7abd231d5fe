#pragma once

#include <set>
#include <string>
#include <vector>

#include "guidance/suggestions.h"

namespace korvinel::platform {
struct Files;
}

namespace korvinel::guidance {

/// The names of the recordings in a folder and of their subjects, read in small pieces so that nothing waits for them.
/// Files that cannot be read are left out.
class RecordingIndex {
 public:
  /// `folder`: with its trailing separator.
  RecordingIndex(platform::Files& files, std::string folder) : files_(files), folder_(std::move(folder)) {}

  void look();  ///< lists the folder; only new files are to be read
  [[nodiscard]] bool isComplete() const { return unread_.empty(); }
  void readOne();  ///< the head of one more file, if there is one

  [[nodiscard]] const KnownSubjects& subjects() const { return subjects_; }
  [[nodiscard]] bool hasFile(const std::string& name) const;  ///< case ignored; as of the last look

 private:
  platform::Files& files_;
  std::string folder_;
  std::set<std::string> names_;  ///< in upper case
  std::vector<std::string> unread_;
  KnownSubjects subjects_;
};

}  // namespace korvinel::guidance
