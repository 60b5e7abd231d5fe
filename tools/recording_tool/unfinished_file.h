#pragma once

#include <functional>
#include <string>

namespace korvinel::tool {

/// A file being written that is worthless until complete: it is removed with the object, and also if the program is
/// interrupted.
class UnfinishedFile {
 public:
  /// `create`: creates the file; if it throws, there is none.
  UnfinishedFile(std::string path, const std::function<void()>& create);
  ~UnfinishedFile();
  UnfinishedFile(const UnfinishedFile&) = delete;
  UnfinishedFile& operator=(const UnfinishedFile&) = delete;

  [[nodiscard]] const std::string& path() const { return path_; }

 private:
  std::string path_;
};

/// Runs a step that could re-create a removed file; not once the program has been interrupted.
void beforeInterruption(const std::function<void()>& step);

/// Removes all unfinished files. None can be created from then on: the program is about to end.
void removeUnfinishedFiles();

}  // namespace korvinel::tool
