#pragma once

#include <csignal>
#include <functional>
#include <map>
#include <memory>
#include <string>

#include "platform/files.h"

namespace korvinel {

/// Files that count what is done to them and, at a chosen step, let everything end as a crash would. A step is a piece
/// of a write, a synchronising, a creating, a renaming or a removing.
class DyingFiles : public platform::Files {
 public:
  /// `lastStep`: the first step that is not done any more; `onDeath` must not return.
  DyingFiles(platform::Files& real, int lastStep, std::function<void()> onDeath)
      : real_(real), lastStep_(lastStep), onDeath_(std::move(onDeath)) {}

  [[nodiscard]] int steps() const { return steps_; }
  struct Length {
    std::size_t written = 0;
    std::size_t synchronised = 0;  ///< that many bytes survive a failure of the machine's power; the others may be lost
  };
  [[nodiscard]] const std::map<std::string, Length>& lengths() const { return lengths_; }  ///< of what was written to

  std::unique_ptr<platform::InputFile> openForReading(const std::string& path) override {
    return real_.openForReading(path);
  }
  std::unique_ptr<platform::OutputFile> create(const std::string& path) override {
    step();
    lengths_[path] = {};
    return std::make_unique<Output>(*this, path, real_.create(path));
  }
  std::unique_ptr<platform::OutputFile> createNew(const std::string& path) override {
    step();
    lengths_[path] = {};
    return std::make_unique<Output>(*this, path, real_.createNew(path));
  }
  std::unique_ptr<platform::OutputFile> openForAppending(const std::string& path) override {
    step();
    if (!lengths_.contains(path)) lengths_[path] = lengthBefore(path);
    return std::make_unique<Output>(*this, path, real_.openForAppending(path));
  }
  bool exists(const std::string& path) override { return real_.exists(path); }
  void remove(const std::string& path) override {
    step();
    real_.remove(path);
    lengths_.erase(path);
  }
  void rename(const std::string& from, const std::string& to) override {
    step();
    real_.rename(from, to);
    lengths_[to] = lengths_[from];
    lengths_.erase(from);
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

    /// A write may be cut anywhere: it goes down in three pieces.
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
    }

   private:
    DyingFiles& files_;
    std::string path_;
    std::unique_ptr<platform::OutputFile> real_;
  };

  /// What was there before is on the disk.
  Length lengthBefore(const std::string& path) {
    Length length;
    if (!real_.exists(path)) return length;
    const auto file = real_.openForReading(path);
    while (file->take() != ByteSource::end) ++length.written;
    length.synchronised = length.written;
    return length;
  }

  void step() {
    if (steps_++ >= lastStep_) onDeath_();
  }

  platform::Files& real_;
  int lastStep_;
  std::function<void()> onDeath_;
  int steps_ = 0;
  std::map<std::string, Length> lengths_;
};

}  // namespace korvinel
