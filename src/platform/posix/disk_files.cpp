#include "platform/posix/disk_files.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <optional>

#include "platform/buffered_input.h"
#include "platform/host_paths.h"
#include "platform/posix/access_modes.h"
#include "platform/posix/file_descriptor.h"
#include "platform/posix/file_lock.h"
#include "platform/posix/name_rules.h"
#include "values/code_page.h"
#include "values/runtime_error.h"

namespace korvinel::platform {
namespace {

using Place = DiskFiles::Place;

/// Why the system does not open a file, or that it is not an ordinary one.
struct Refusal {
  std::string systemReason = {};
  bool notOrdinary = false;
};

[[noreturn]] void fail(Cause cause, const Place& file, const Refusal& refusal, const std::string& newPath = "") {
  throw RuntimeError(Facts{.cause = cause,
                           .path = file.path,
                           .placeOnDisk = file.path == file.onDisk ? "" : file.onDisk,
                           .newPath = newPath,
                           .notOrdinary = refusal.notOrdinary,
                           .systemReason = refusal.systemReason});
}

/// With the system's reason for an `errno`.
[[noreturn]] void fail(Cause cause, const Place& file, int error, const std::string& newPath = "") {
  fail(cause, file, Refusal{.systemReason = systemMessage(error)}, newPath);
}

/// Opens without waiting for the other end of a pipe.
std::optional<Refusal> openOrdinaryFile(const std::string& path, int how, FileDescriptor& file) {
  const mode_t mode = (how & O_CREAT) != 0 ? modeOfNewFile(path) : 0;
  file = FileDescriptor(::open(path.c_str(), how | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, mode));
  struct stat status {};
  if (!file.isOpen() || fstat(file.get(), &status) != 0) return Refusal{.systemReason = systemMessage(errno)};
  if (!S_ISREG(status.st_mode)) return Refusal{.notOrdinary = true};
  return std::nullopt;
}

class DiskInput : public BufferedInput {
 public:
  DiskInput(FileDescriptor file, Place place)
      : BufferedInput(sizeOf(file)), file_(std::move(file)), place_(std::move(place)) {}

 private:
  static std::int64_t sizeOf(const FileDescriptor& file) {
    struct stat status {};
    return fstat(file.get(), &status) == 0 ? status.st_size : 0;
  }
  std::size_t readPiece(std::span<char> room) override {
    ssize_t count = 0;
    do count = ::read(file_.get(), room.data(), room.size());
    while (count < 0 && errno == EINTR);
    if (count < 0) fail(Cause::notReadable, place_, errno);
    return static_cast<std::size_t>(count);
  }

  FileDescriptor file_;
  Place place_;
};

class DiskOutput : public OutputFile {
 public:
  DiskOutput(FileDescriptor file, Place place) : file_(std::move(file)), place_(std::move(place)) {}

  void write(std::string_view bytes) override {
    while (!bytes.empty()) {
      const ssize_t count = ::write(file_.get(), bytes.data(), bytes.size());
      if (count < 0 && errno == EINTR) continue;
      if (count <= 0) fail(Cause::notWritable, place_, count < 0 ? errno : ENOSPC);
      bytes.remove_prefix(static_cast<std::size_t>(count));
    }
  }

  void synchronise() override {
    if (fsync(file_.get()) != 0) fail(Cause::notWritable, place_, errno);
    // The folder too, or a new file's name may be lost; it is not a fault if the file system cannot do that.
    const FileDescriptor folder(::open(folderOf(place_.onDisk).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (folder.isOpen()) fsync(folder.get());
  }

 private:
  FileDescriptor file_;
  Place place_;
};

/// Renames without replacing; false, with `errno`, if that fails.
bool renameToNewName(const std::string& from, const std::string& to) {
  if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return true;
  const bool notOffered = errno == EINVAL || errno == ENOSYS;
  return notOffered && link(from.c_str(), to.c_str()) == 0 && unlink(from.c_str()) == 0;
}

/// Asks the file itself only where the folder does not say: of thousands of files that takes seconds on a slow disk.
bool isOrdinaryFile(DIR& folder, const dirent& entry) {
  if (entry.d_type == DT_REG) return true;
  if (entry.d_type != DT_UNKNOWN && entry.d_type != DT_LNK) return false;
  struct stat status {};
  return fstatat(dirfd(&folder), entry.d_name, &status, 0) == 0 && S_ISREG(status.st_mode);
}

}  // namespace

DiskFiles::Place DiskFiles::place(const std::string& path) const { return {path, hostPath(dataFolder_, path)}; }

std::unique_ptr<InputFile> DiskFiles::openForReading(const std::string& path) {
  const Place file = place(path);
  FileDescriptor descriptor;
  if (const auto refusal = openOrdinaryFile(file.onDisk, O_RDONLY, descriptor))
    fail(Cause::notReadable, file, *refusal);
  return std::make_unique<DiskInput>(std::move(descriptor), file);
}

std::unique_ptr<OutputFile> DiskFiles::openForWriting(const Place& place, int how) {
  FileDescriptor descriptor;
  if (const auto refusal = openOrdinaryFile(place.onDisk, O_WRONLY | O_CREAT | how, descriptor))
    fail(Cause::notWritable, place, *refusal);
  return std::make_unique<DiskOutput>(std::move(descriptor), place);
}

std::unique_ptr<OutputFile> DiskFiles::create(const std::string& path) { return openForWriting(place(path), O_TRUNC); }

std::unique_ptr<OutputFile> DiskFiles::createNew(const std::string& path) {
  return openForWriting(place(path), O_EXCL | O_NOFOLLOW);
}

std::unique_ptr<OutputFile> DiskFiles::openForAppending(const std::string& path) {
  return openForWriting(place(path), O_APPEND);
}

bool DiskFiles::exists(const std::string& path) {
  struct stat status {};
  return stat(place(path).onDisk.c_str(), &status) == 0;
}

void DiskFiles::remove(const std::string& path) {
  const Place file = place(path);
  if (unlink(file.onDisk.c_str()) != 0) fail(Cause::notRemoved, file, errno);
}

void DiskFiles::rename(const std::string& from, const std::string& to) {
  const Place source = place(from);
  const Place target = place(to);
  if (!renameToNewName(source.onDisk, target.onDisk)) fail(Cause::notRenamed, source, errno, target.path);
}

NameFault DiskFiles::nameFault(const std::string& folder, const std::string& name) {
  return nameFaultIn(place(folder).onDisk, name);
}

LockAttempt DiskFiles::lock(const std::string& path, const std::string& note) {
  return lockFile(place(path).onDisk, note);
}

std::vector<std::string> DiskFiles::list(const std::string& folder, const std::string& ending) {
  const std::string onDisk = place(folder).onDisk;
  std::vector<std::string> names;
  DIR* open = opendir(onDisk.c_str());
  if (open == nullptr) return names;
  while (const dirent* entry = readdir(open)) {
    const std::string name = entry->d_name;
    if (upperCase(name).ends_with(upperCase(ending)) && isOrdinaryFile(*open, *entry)) names.push_back(name);
  }
  closedir(open);
  std::sort(names.begin(), names.end());
  return names;
}

std::unique_ptr<Files> hostFiles(const std::string& dataFolder) { return std::make_unique<DiskFiles>(dataFolder); }

}  // namespace korvinel::platform
