#pragma once

#include <functional>
#include <string>

namespace korvinel::tool {

/// A file that is being written and is worth nothing until it is whole: it goes with the object, and where the program
/// is interrupted with the program.
class UnfinishedFile {
 public:
  /// `create`: makes the file; if it throws there is none.
  UnfinishedFile(std::string path, const std::function<void()>& create);
  ~UnfinishedFile();
  UnfinishedFile(const UnfinishedFile&) = delete;
  UnfinishedFile& operator=(const UnfinishedFile&) = delete;

  [[nodiscard]] const std::string& path() const { return path_; }

 private:
  std::string path_;
};

/// Runs a step that could make a removed file anew; it does not run any more once the program is interrupted.
void beforeInterruption(const std::function<void()>& step);

/// Removes all that is unfinished. Nothing can be created as such from then on: the program is about to end.
void removeUnfinishedFiles();

}  // namespace korvinel::tool
