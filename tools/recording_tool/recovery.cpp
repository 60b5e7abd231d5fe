#include "recording_tool/recovery.h"

#include <utility>

#include "recording/channel_record.h"
#include "recording/recovery.h"
#include "recording/side_file.h"
#include "recording/temporary_reader.h"
#include "recording_tool/fault_text.h"
#include "recording_tool/host_files.h"
#include "recording_tool/recording_guard.h"
#include "recording_tool/safe_output.h"
#include "recording_tool/tool_error.h"

namespace korvinel::tool {
namespace {

std::string counted(std::int64_t count, const std::string& what) {
  return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

/// A file of the user's whose faults of reading are ToolErrors that name the byte.
class ReportedInput : public platform::InputFile {
 public:
  explicit ReportedInput(const std::string& path) : path_(path), file_(openInput(path)) {}
  int peek() override {
    return reported([&] { return file_->peek(); });
  }
  int take() override {
    return reported([&] { return file_->take(); });
  }
  [[nodiscard]] std::int64_t position() const override { return file_->position(); }
  [[nodiscard]] std::int64_t size() const override { return file_->size(); }

 private:
  template <typename Step>
  int reported(Step&& step) {
    try {
      return step();
    } catch (const RuntimeError& fault) {
      throw ToolError(path_, "cannot be read: " + reasonOf(fault) + ", at byte " + std::to_string(file_->position()));
    }
  }

  std::string path_;
  std::unique_ptr<platform::InputFile> file_;
};

class Recovering {
 public:
  explicit Recovering(const std::string& path) : path_(path), file_(path), temporary_(file_) {
    if (temporary_.kind() == TemporaryKind::finished)
      throw ToolError(path_, "is no temporary file but a finished recording, at byte 0");
    if (temporary_.kind() == TemporaryKind::other)
      throw ToolError(path_, "is no temporary file: its header line is another, at byte 0");
    header_.subject = temporary_.subject();
    header_.date = temporary_.date();
  }

  std::vector<std::string> run(const std::string& notes, const std::string& output, bool force) {
    const std::string side = notes.empty() ? foundSideFile() : notes;
    if (!side.empty()) requireWritable(output, side, force);
    takeSideFile(side, !notes.empty());
    SafeOutput file(output, force);
    file.write(headBytes(header_));
    copied_ = copyBlocks(temporary_, [&](std::string_view bytes) { file.write(bytes); });
    if (copied_.blocks == 0) throw ToolError(path_, "holds no whole block");
    file.commit();
    tellBlocks();
    return std::move(told_);
  }

 private:
  [[nodiscard]] std::string foundSideFile() {
    const std::string own = sidePathOf(path_);
    std::string found = sideFileOf(*platform::hostFiles(""), absolutePath(path_), temporary_);
    if (found.empty() || found == absolutePath(own)) return found.empty() ? "" : own;
    told_.push_back("takes its notes from " + found);
    return found;
  }

  void takeSideFile(const std::string& path, bool wasNamed) {
    if (path.empty()) {
      told_.push_back("has no notes: there is no " + sidePathOf(path_));
      return;
    }
    try {
      const SideFile side = readSideFile(*openInput(path));
      if (belongsTogether(side, header_.subject, header_.date)) return take(side, path);
      throw ToolError(path, "belongs to another recording; its notes are left out");
    } catch (const ToolError& error) {
      if (wasNamed) throw;
      told_.emplace_back(error.what());
    } catch (const RuntimeError& fault) {
      if (wasNamed) throw ToolError(path, "cannot be read: " + reasonOf(fault));
      told_.push_back(path + ": cannot be read: " + reasonOf(fault));
    }
  }

  void take(const SideFile& side, const std::string& path) {
    takeFromSideFile(header_, side);
    if (side.holdsNames) told_.push_back("was to be called " + side.dataFileName);
    if (side.damagedLines > 0) told_.push_back(path + ": " + counted(side.damagedLines, "damaged line") + " left out");
    if (side.notesMissing > 0) told_.push_back(path + ": " + counted(side.notesMissing, "note") + " missing");
  }

  void tellBlocks() {
    std::string told = counted(copied_.blocks, "block") + " recovered";
    if (copied_.left > 0 && copied_.left < blockBytes)
      told += "; " + std::to_string(copied_.left) + " bytes of a block that was not finished are left out";
    if (copied_.left >= blockBytes)
      told += "; what stands behind byte " + std::to_string(copied_.end) + " is no block and is left out";
    if (copied_.damaged > 0) told += "; " + counted(copied_.damaged, "block") + " among them damaged, kept as found";
    told_.push_back(told);
  }

  std::string path_;
  ReportedInput file_;
  TemporaryReader temporary_;
  FileHeader header_;
  std::vector<std::string> told_;
  CopiedBlocks copied_;
};

}  // namespace

std::vector<std::string> recover(const std::string& temporaryFile, const std::string& notes, const std::string& output,
                                 bool force) {
  requireWritable(output, temporaryFile, force);
  // The side file is read even if it was not named.
  requireWritable(output, notes.empty() ? sidePathOf(temporaryFile) : notes, force);
  const auto guard = holdAgainstRecording(temporaryFile);
  return Recovering(temporaryFile).run(notes, output, force);
}

}  // namespace korvinel::tool
