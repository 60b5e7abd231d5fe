#include "recording_tool/safe_output.h"

#include <filesystem>
#include <random>

#include "recording_tool/ascii_form.h"
#include "recording_tool/fault_text.h"
#include "recording_tool/host_files.h"
#include "recording_tool/tool_error.h"
#include "recording_tool/utf8_path.h"

namespace korvinel::tool {
namespace {

namespace fs = std::filesystem;

std::unique_ptr<platform::Files> disk() { return platform::hostFiles(""); }

std::string pathBeside(const std::string& path) {
  constexpr std::size_t longestName = 200;
  const fs::path target = pathOf(absolutePath(path));
  const std::string name =
      "." + firstPiece(utf8Of(target.filename()), longestName) + "." + std::to_string(std::random_device{}()) + ".part";
  return utf8Of(target.parent_path() / pathOf(name));
}

void refuseExisting(const std::string& path, bool force) {
  std::error_code error;
  const fs::file_status status = fs::symlink_status(pathOf(path), error);
  const bool isDevice = !fs::exists(status) && disk()->exists(absolutePath(path));
  if (!fs::exists(status) && !isDevice) return;
  if (!force) throw ToolError(path, "exists already; --force replaces it");
  if (isDevice || !fs::is_regular_file(fs::status(pathOf(path), error)))
    throw ToolError(path, "is no ordinary file and cannot be replaced");
}

/// What was for its owner alone stays so, from the first byte on.
void takeModeOf(const std::string& replaced, const std::string& path) {
  std::error_code error;
  const fs::file_status status = fs::status(pathOf(replaced), error);
  if (!error && fs::is_regular_file(status))
    fs::permissions(pathOf(path), status.permissions() | fs::perms::owner_write, error);
}

template <typename Step>
void writing(const std::string& path, Step&& step) {
  try {
    step();
  } catch (const RuntimeError& fault) {
    throw ToolError(path, "cannot be written: " + reasonOf(fault));
  }
}

}  // namespace

SafeOutput::SafeOutput(std::string path, bool force) : path_(std::move(path)), force_(force) {
  refuseExisting(path_, force_);
  const std::string beside = pathBeside(path_);
  writing(path_,
          [&] { unfinished_ = std::make_unique<UnfinishedFile>(beside, [&] { file_ = disk()->createNew(beside); }); });
  takeModeOf(path_, beside);
}

SafeOutput::~SafeOutput() {
  file_.reset();  // before it is removed
}

void SafeOutput::write(std::string_view bytes) {
  writing(path_, [&] { file_->write(bytes); });
}

void SafeOutput::commit() {
  writing(path_, [&] {
    const std::string& written = temporaryPath();
    // A library that wrote it may have replaced the created file by another.
    if (!file_) beforeInterruption([&] { file_ = disk()->openForAppending(written); });
    file_->synchronise();
    file_.reset();
    if (!force_) return disk()->rename(written, absolutePath(path_));
    std::error_code error;
    fs::rename(pathOf(written), pathOf(absolutePath(path_)), error);
    if (error) throw ToolError(path_, "cannot be written: " + error.message());
  });
}

void writeWhole(const std::string& path, std::string_view bytes, bool force) {
  SafeOutput output(path, force);
  output.write(bytes);
  output.commit();
}

void requireApart(const std::string& output, const std::vector<std::string>& inputs) {
  for (const std::string& input : inputs)
    if (isSameFile(output, input)) throw UsageError(output + ": is a file that is being read, " + input);
}

void requireWritable(const std::string& path, const std::string& input, bool force) {
  requireApart(path, {input});
  refuseExisting(path, force);
}

}  // namespace korvinel::tool
