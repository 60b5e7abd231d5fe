#include "platform/headless/memory_files.h"

#include <algorithm>

#include "values/code_page.h"
#include "values/runtime_error.h"

namespace korvinel::platform {
namespace {

constexpr std::string_view separators = "/\\";  // of the host's paths, and of the program's

[[noreturn]] void fail(Cause cause, const std::string& path, const char* reason = "", const std::string& newPath = "") {
  throw RuntimeError(Facts{.cause = cause, .path = path, .newPath = newPath, .systemReason = reason});
}

}  // namespace

class MemoryFiles::Input : public InputFile {
 public:
  Input(const MemoryFiles& files, std::string path, std::string bytes, std::size_t failingAt)
      : files_(files), path_(std::move(path)), bytes_(std::move(bytes)), failingAt_(failingAt) {}
  int peek() override {
    if (next_ >= failingAt_ || files_.isGone(path_)) fail(Cause::notReadable, path_);
    return next_ < bytes_.size() ? static_cast<unsigned char>(bytes_[next_]) : end;
  }
  int take() override {
    const int byte = peek();
    if (byte != end) ++next_;
    return byte;
  }
  [[nodiscard]] std::int64_t position() const override { return static_cast<std::int64_t>(next_); }
  [[nodiscard]] std::int64_t size() const override { return static_cast<std::int64_t>(bytes_.size()); }

 private:
  const MemoryFiles& files_;
  std::string path_, bytes_;
  std::size_t failingAt_;
  std::size_t next_ = 0;
};

class MemoryFiles::Output : public OutputFile {
 public:
  Output(MemoryFiles& files, std::string path) : files_(files), path_(std::move(path)) {}
  void write(std::string_view bytes) override {
    refuseIfGone();
    const auto room = static_cast<std::size_t>(std::max<std::int64_t>(files_.freeSpace, 0));
    const std::string_view fitting = bytes.substr(0, room);
    files_.content[path_] += fitting;
    files_.freeSpace -= static_cast<std::int64_t>(fitting.size());
    if (fitting.size() < bytes.size()) fail(Cause::notWritable, path_, "No space left on device");
  }
  void synchronise() override { refuseIfGone(); }

 private:
  void refuseIfGone() const {
    if (files_.isGone(path_)) fail(Cause::notWritable, path_);
  }

  MemoryFiles& files_;
  std::string path_;
};

/// The note takes no space: even if it does not fit, the lock is taken.
class MemoryFiles::Lock : public FileLock {
 public:
  Lock(MemoryFiles& files, std::string path) : files_(files), path_(std::move(path)) { files_.locked_.insert(path_); }
  Lock(const Lock&) = delete;
  Lock& operator=(const Lock&) = delete;
  ~Lock() override {
    files_.locked_.erase(path_);
    const auto file = files_.content.find(path_);
    if (!files_.readOnly && file != files_.content.end()) file->second.clear();
  }

 private:
  MemoryFiles& files_;
  std::string path_;
};

LockAttempt MemoryFiles::lock(const std::string& path, const std::string& note) {
  if (locked_.contains(path)) return {LockOutcome::held, nullptr, content.contains(path) ? content[path] : ""};
  if (isGone(path) || (readOnly && !content.contains(path)))
    return {LockOutcome::notWritable, nullptr, "Read-only file system"};
  if (!offersLocks) return {LockOutcome::notOffered, nullptr, "No locks available"};
  if (!readOnly) content[path] = note;
  return {LockOutcome::taken, std::make_unique<Lock>(*this, path), ""};
}

std::unique_ptr<InputFile> MemoryFiles::openForReading(const std::string& path) {
  const bool refused = std::find(unreadable.begin(), unreadable.end(), path) != unreadable.end();
  const auto found = content.find(path);
  if (refused || isGone(path) || found == content.end()) fail(Cause::notReadable, path);
  const auto failing = failingAt.find(path);
  return std::make_unique<Input>(*this, path, found->second,
                                 failing == failingAt.end() ? std::string::npos : failing->second);
}

std::unique_ptr<OutputFile> MemoryFiles::create(const std::string& path) {
  refuseIfReadOnly(path);
  refuseBadName(path);
  content[path].clear();
  return std::make_unique<Output>(*this, path);
}

std::unique_ptr<OutputFile> MemoryFiles::createNew(const std::string& path) {
  if (exists(path)) fail(Cause::notWritable, path, "File exists");
  return create(path);
}

std::unique_ptr<OutputFile> MemoryFiles::openForAppending(const std::string& path) {
  refuseIfReadOnly(path);
  refuseBadName(path);
  content[path];
  return std::make_unique<Output>(*this, path);
}

void MemoryFiles::remove(const std::string& path) {
  refuseIfReadOnly(path);
  if (content.erase(path) == 0) fail(Cause::notRemoved, path);
}

void MemoryFiles::rename(const std::string& from, const std::string& to) {
  refuseIfReadOnly(from);
  refuseIfReadOnly(to);
  refuseBadName(to);
  const auto found = content.find(from);
  if (found == content.end()) fail(Cause::notRenamed, from, "No such file or directory", to);
  if (content.contains(to)) fail(Cause::notRenamed, from, "File exists", to);
  content[to] = std::move(found->second);
  content.erase(from);
}

NameFault MemoryFiles::nameFault(const std::string& /*folder*/, const std::string& name) {
  if (name.empty() || name == "." || name == ".." || name.find_first_of(separators) != std::string::npos)
    return NameFault::letters;
  const std::string stem = upperCase(name.substr(0, name.find('.')));
  if (std::find(devices.begin(), devices.end(), stem) != devices.end()) return NameFault::device;
  return name.size() > longestName ? NameFault::tooLong : NameFault::none;
}

std::vector<std::string> MemoryFiles::list(const std::string& folder, const std::string& ending) {
  std::vector<std::string> names;
  for (const auto& [path, bytes] : content) {
    const std::size_t begin = path.find_last_of(separators) + 1;
    const std::string_view itsFolder = std::string_view(path).substr(0, begin);
    const bool isThere = itsFolder == folder || (begin > 0 && itsFolder.substr(0, begin - 1) == folder);
    const std::string name = path.substr(begin);
    if (isThere && !isGone(path) && upperCase(name).ends_with(upperCase(ending))) names.push_back(name);
  }
  return names;
}

bool MemoryFiles::isFolder(const std::string& path) const {
  return std::any_of(separators.begin(), separators.end(), [&](char separator) {
    const auto inner = content.lower_bound(path + separator);
    return inner != content.end() && inner->first.starts_with(path + separator);
  });
}

void MemoryFiles::refuseBadName(const std::string& path) {
  const std::size_t name = path.find_last_of(separators) + 1;
  if (isFolder(path) || nameFault(path.substr(0, name), path.substr(name)) != NameFault::none)
    fail(Cause::notWritable, path);
}

void MemoryFiles::refuseIfReadOnly(const std::string& path) const {
  if (readOnly || isGone(path)) fail(Cause::notWritable, path);
}

}  // namespace korvinel::platform
