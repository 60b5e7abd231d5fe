#include "recording/safe_output.h"

#include <unistd.h>

#include <atomic>
#include <filesystem>

#include "platform/posix/disk_files.h"
#include "recording/host_files.h"
#include "recording/tool_error.h"
#include "values/runtime_error.h"

namespace korvinel::tool {
namespace {

namespace fs = std::filesystem;

platform::DiskFiles disk() { return platform::DiskFiles(""); }

std::string pathBeside(const std::string& path) {
  static std::atomic<int> number = 0;
  const fs::path target = absolutePath(path);
  const std::string name = "." + target.filename().string().substr(0, 200) + "." + std::to_string(getpid()) + "-" +
                           std::to_string(++number) + ".part";
  return (target.parent_path() / name).string();
}

void refuseExisting(const std::string& path, bool force) {
  std::error_code error;
  const fs::file_status status = fs::symlink_status(path, error);
  if (!fs::exists(status)) return;
  if (!force) throw ToolError(path, "exists already; --force replaces it");
  if (!fs::is_regular_file(fs::status(path, error)))
    throw ToolError(path, "is no ordinary file and cannot be replaced");
}

template <typename Step>
void writing(const std::string& path, Step&& step) {
  try {
    step();
  } catch (const RuntimeError& fault) {
    throw ToolError(path, "cannot be written: " + reasonOf(fault.what()));
  }
}

}  // namespace

SafeOutput::SafeOutput(std::string path, bool force)
    : path_(std::move(path)), temporaryPath_(pathBeside(path_)), force_(force) {
  refuseExisting(path_, force_);
  writing(path_, [&] { file_ = disk().create(temporaryPath_); });
}

SafeOutput::~SafeOutput() {
  file_.reset();
  std::error_code ignored;
  fs::remove(temporaryPath_, ignored);
}

void SafeOutput::write(std::string_view bytes) {
  writing(path_, [&] { file_->write(bytes); });
}

void SafeOutput::commit() {
  writing(path_, [&] {
    // Opened anew: a library may have put another file in the place of the one that was created.
    file_ = disk().openForAppending(temporaryPath_);
    file_->synchronise();
    file_.reset();
    if (!force_) return disk().rename(temporaryPath_, absolutePath(path_));
    std::error_code error;
    fs::rename(temporaryPath_, absolutePath(path_), error);
    if (error) throw RuntimeError(Fault::output, error.message());
  });
}

void writeWhole(const std::string& path, std::string_view bytes, bool force) {
  SafeOutput output(path, force);
  output.write(bytes);
  output.commit();
}

void requireWritable(const std::string& path, const std::string& input, bool force) {
  if (isSameFile(path, input)) throw UsageError(path + ": is the file that is being read");
  refuseExisting(path, force);
}

}  // namespace korvinel::tool
