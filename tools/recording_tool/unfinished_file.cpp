#include "recording_tool/unfinished_file.h"

#include <filesystem>
#include <mutex>
#include <set>

#include "recording_tool/utf8_path.h"

namespace korvinel::tool {
namespace {

/// Never destroyed: an interruption may occur while the program exits.
struct Register {
  std::mutex mutex;
  std::set<std::string> paths;
};

Register& all() {
  static auto& instance = *new Register;
  return instance;
}

void removeFile(const std::string& path) {
  std::error_code ignored;
  std::filesystem::remove(pathOf(path), ignored);
}

}  // namespace

UnfinishedFile::UnfinishedFile(std::string path, const std::function<void()>& create) : path_(std::move(path)) {
  const std::lock_guard lock(all().mutex);
  create();
  all().paths.insert(path_);
}

UnfinishedFile::~UnfinishedFile() {
  const std::lock_guard lock(all().mutex);
  removeFile(path_);
  all().paths.erase(path_);
}

void beforeInterruption(const std::function<void()>& step) {
  const std::lock_guard lock(all().mutex);
  step();
}

void removeUnfinishedFiles() {
  all().mutex.lock();  // never unlocked: any further writer waits until the program ends
  for (const std::string& path : all().paths) removeFile(path);
}

}  // namespace korvinel::tool
