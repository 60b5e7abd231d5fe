#include "recording_tool/recovery.h"

#include <filesystem>

#include "recording/channel_record.h"
#include "recording/record_line.h"
#include "recording/side_file.h"
#include "recording_tool/fault_text.h"
#include "recording_tool/host_files.h"
#include "recording_tool/recording_guard.h"
#include "recording_tool/safe_output.h"
#include "recording_tool/temporary_reader.h"
#include "recording_tool/tool_error.h"
#include "recording_tool/utf8_path.h"

namespace korvinel::tool {
namespace {

/// Damaged blocks followed by an intact one are kept in place, up to this many, more than an examination has.
constexpr std::size_t mostDamagedBytes = 200 * static_cast<std::size_t>(blockBytes);

std::string counted(std::int64_t count, const std::string& what) {
  return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

class Recovering {
 public:
  explicit Recovering(const std::string& path) : path_(path), temporary_(path) {
    header_.subject = temporary_.subject();
    header_.date = temporary_.date();
  }

  std::vector<std::string> run(const std::string& notes, const std::string& output, bool force) {
    takeSideFile(notes);
    SafeOutput file(output, force);
    writeHead(file);
    copyBlocks(file);
    if (blocks_ == 0) throw ToolError(path_, "holds no whole block");
    file.commit();
    tellBlocks();
    return std::move(told_);
  }

 private:
  void takeSideFile(const std::string& given) {
    const std::string path = given.empty() ? sidePathOf(path_) : given;
    std::error_code ignored;
    if (given.empty() && !std::filesystem::exists(pathOf(path), ignored)) {
      told_.push_back("has no notes: there is no " + path);
      return;
    }
    try {
      const SideFile side = readSideFile(*openInput(path));
      if (belongsHere(side)) return take(side, path);
      throw ToolError(path, "belongs to another recording; its notes are left out");
    } catch (const ToolError& error) {
      if (!given.empty()) throw;
      told_.emplace_back(error.what());
    } catch (const RuntimeError& fault) {
      if (!given.empty()) throw ToolError(path, "cannot be read: " + reasonOf(fault));
      told_.push_back(path + ": cannot be read: " + reasonOf(fault));
    }
  }

  /// The same person and day as in the temporary file: nobody's notes may be given to somebody else.
  [[nodiscard]] bool belongsHere(const SideFile& side) const {
    if (side.temporaryDate.empty())
      return side.holdsNames && side.subject == header_.subject && side.date == header_.date;
    return side.temporarySubject == header_.subject && side.temporaryDate == header_.date;
  }

  void take(const SideFile& side, const std::string& path) {
    header_.noteCount = side.noteCount;
    header_.noteTimes = side.noteTimes;
    header_.noteTexts = side.noteTexts;
    if (side.holdsNames) {
      header_.subject = side.subject;
      header_.date = side.date;
      told_.push_back("was to be called " + side.dataFileName);
    }
    if (side.damagedLines > 0) told_.push_back(path + ": " + counted(side.damagedLines, "damaged line") + " left out");
    if (side.notesMissing > 0) told_.push_back(path + ": " + counted(side.notesMissing, "note") + " missing");
  }

  void writeHead(SafeOutput& file) const {
    const bool hasNotes = header_.noteCount > 0;
    file.write(headerLine(header_.subject, header_.date, hasNotes ? header_.noteCount : 1));
    if (!hasNotes) file.write(noteLine(1, "Nota: "));
    for (int note = 1; note <= header_.noteCount; ++note)
      file.write(noteLine(header_.noteTimes[note], header_.noteTexts[note]));
  }

  /// A tail without an intact block is left out: it was never a recording, or never reached the disk.
  void copyBlocks(SafeOutput& file) {
    end_ = temporary_.position();
    std::string held;
    for (std::string block; held.size() < mostDamagedBytes; held += block) {
      block = temporary_.nextBlock();
      if (block.size() < blockBytes) break;
      if (!isSound(block)) continue;
      file.write(held);
      file.write(block);
      damaged_ += static_cast<int>(held.size()) / blockBytes;
      blocks_ += static_cast<std::int64_t>(held.size()) / blockBytes + 1;
      end_ = temporary_.position();
      held.clear();
      block.clear();
    }
    left_ = temporary_.position() - end_;
  }

  void tellBlocks() {
    std::string told = counted(blocks_, "block") + " recovered";
    if (left_ > 0 && left_ < blockBytes)
      told += "; " + std::to_string(left_) + " bytes of a block that was not finished are left out";
    if (left_ >= blockBytes)
      told += "; what stands behind byte " + std::to_string(end_) + " is no block and is left out";
    if (damaged_ > 0) told += "; " + counted(damaged_, "block") + " among them damaged, kept as found";
    told_.push_back(told);
  }

  std::string path_;
  TemporaryReader temporary_;
  FileHeader header_;
  std::vector<std::string> told_;
  std::int64_t blocks_ = 0, left_ = 0, end_ = 0;
  int damaged_ = 0;
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
