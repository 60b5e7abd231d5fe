#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "campaign.h"
#include "platform/files.h"

namespace korvinel {

/// Files that count their operations and simulate a crash at a chosen step. A step is a part of a write, or a
/// synchronisation, creation, renaming or removal.
class DyingFiles : public platform::Files {
 public:
  /// `lastStep`: the number of steps performed before the crash. `onDeath` must not return.
  DyingFiles(platform::Files& real, int lastStep, std::function<void()> onDeath)
      : real_(real), lastStep_(lastStep), onDeath_(std::move(onDeath)) {}

  [[nodiscard]] int steps() const { return steps_; }
  struct Length {
    std::size_t written = 0;
    std::size_t synchronised = 0;  ///< bytes that survive a power failure; the others may be lost
  };
  [[nodiscard]] const std::map<std::string, Length>& lengths() const { return lengths_; }  ///< of the files written to

  /// Simulates a power failure. Of the creations, renames and removals since the last synchronisation of their folder
  /// only the first few remain; of each file the synchronised bytes, and of the others some, zeros in their place, or
  /// nothing.
  void losePower(campaign::Dice& dice) {
    for (auto kept = static_cast<std::size_t>(dice.between(0, static_cast<int>(changes_.size())));
         changes_.size() > kept; changes_.pop_back())
      changes_.back().undo();
    for (const auto& [path, length] : lengths_) loseBytes(path, length, dice.below(4));
  }

  std::unique_ptr<platform::InputFile> openForReading(const std::string& path) override {
    return real_.openForReading(path);
  }
  std::unique_ptr<platform::OutputFile> create(const std::string& path) override {
    step();
    noteCreation(path);
    lengths_[path] = {};
    return std::make_unique<Output>(*this, path, real_.create(path));
  }
  std::unique_ptr<platform::OutputFile> createNew(const std::string& path) override {
    step();
    noteCreation(path);
    lengths_[path] = {};
    return std::make_unique<Output>(*this, path, real_.createNew(path));
  }
  std::unique_ptr<platform::OutputFile> openForAppending(const std::string& path) override {
    step();
    if (!real_.exists(path)) noteCreation(path);
    if (!lengths_.contains(path)) lengths_[path] = lengthBefore(path);
    return std::make_unique<Output>(*this, path, real_.openForAppending(path));
  }
  bool exists(const std::string& path) override { return real_.exists(path); }
  void remove(const std::string& path) override {
    step();
    noteChange(path, restoring(path));
    real_.remove(path);
    lengths_.erase(path);
  }
  void rename(const std::string& from, const std::string& to) override {
    step();
    move(from, to);
    noteChange(from, [this, from, to] { move(to, from); });
  }
  platform::NameFault nameFault(const std::string& folder, const std::string& name) override {
    return real_.nameFault(folder, name);
  }
  platform::LockAttempt lock(const std::string& path, const std::string& note) override {
    return real_.lock(path, note);
  }
  std::vector<std::string> list(const std::string& folder, const std::string& ending) override {
    return real_.list(folder, ending);
  }

 private:
  class Output : public platform::OutputFile {
   public:
    Output(DyingFiles& files, std::string path, std::unique_ptr<platform::OutputFile> real)
        : files_(files), path_(std::move(path)), real_(std::move(real)) {}

    /// Writes in three pieces, because a crash may cut a write anywhere.
    void write(std::string_view bytes) override {
      const std::size_t piece = bytes.size() / 3 + 1;
      for (std::size_t begin = 0; begin < bytes.size(); begin += piece) {
        files_.step();
        const std::string_view part = bytes.substr(begin, piece);
        real_->write(part);
        files_.lengths_[path_].written += part.size();
      }
    }
    void synchronise() override {
      files_.step();
      real_->synchronise();
      files_.lengths_[path_].synchronised = files_.lengths_[path_].written;
      std::erase_if(files_.changes_, [this](const Change& change) { return change.folder == folderOf(path_); });
    }

   private:
    DyingFiles& files_;
    std::string path_;
    std::unique_ptr<platform::OutputFile> real_;
  };

  /// A change of a folder's names that is not yet synchronised.
  struct Change {
    std::string folder;
    std::function<void()> undo;
  };

  static std::string folderOf(const std::string& path) { return path.substr(0, path.find_last_of("/\\") + 1); }

  void noteChange(const std::string& path, std::function<void()> undo) {
    changes_.push_back({folderOf(path), std::move(undo)});
  }

  void noteCreation(const std::string& path) {
    if (real_.exists(path)) return noteChange(path, restoring(path));
    noteChange(path, [this, path] {
      real_.remove(path);
      lengths_.erase(path);
    });
  }

  /// Restores a file that is about to be emptied or removed.
  std::function<void()> restoring(const std::string& path) {
    return [this, path, bytes = contentOf(path), length = lengthOf(path)] {
      real_.create(path)->write(bytes);
      lengths_[path] = length;
    };
  }

  void move(const std::string& from, const std::string& to) {
    real_.rename(from, to);
    if (auto moved = lengths_.extract(from)) {
      moved.key() = to;
      lengths_.insert(std::move(moved));
    }
  }

  void loseBytes(const std::string& path, const Length& length, int how) {
    const std::size_t unsafe = length.written - length.synchronised;
    if (unsafe == 0 || how == 0) return;
    std::string bytes = contentOf(path).substr(0, length.synchronised + (how == 1 ? unsafe / 2 : 0));
    if (how == 2) bytes.resize(length.written, '\0');
    real_.create(path)->write(bytes);
  }

  std::string contentOf(const std::string& path) {
    std::string bytes;
    const auto file = real_.openForReading(path);
    for (int byte = 0; (byte = file->take()) != ByteSource::end;) bytes += static_cast<char>(byte);
    return bytes;
  }

  Length lengthOf(const std::string& path) {
    const auto known = lengths_.find(path);
    return known != lengths_.end() ? known->second : lengthBefore(path);
  }

  /// Existing content counts as synchronised.
  Length lengthBefore(const std::string& path) {
    if (!real_.exists(path)) return {};
    const std::size_t size = contentOf(path).size();
    return {size, size};
  }

  void step() {
    if (steps_++ >= lastStep_) onDeath_();
  }

  platform::Files& real_;
  int lastStep_;
  std::function<void()> onDeath_;
  int steps_ = 0;
  std::map<std::string, Length> lengths_;
  std::vector<Change> changes_;
};

}  // namespace korvinel
