#include "platform/posix/file_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <array>
#include <cerrno>

#include "platform/posix/access_modes.h"
#include "platform/posix/file_descriptor.h"

namespace korvinel::platform {
namespace {

class DiskLock : public FileLock {
 public:
  explicit DiskLock(FileDescriptor file) : file_(std::move(file)) {}
  DiskLock(const DiskLock&) = delete;
  DiskLock& operator=(const DiskLock&) = delete;
  /// Removes the note, as a note that outlived its lock would name the wrong holder of the next one. If the file can
  /// only be read, there is none to remove.
  ~DiskLock() override { static_cast<void>(ftruncate(file_.get(), 0) == 0); }

 private:
  FileDescriptor file_;
};

/// Allows everybody who may create files beside it to write the note: a lock over a network needs that right too.
void letOthersLock(const FileDescriptor& file, const std::string& path) {
  struct stat folder {};
  if (stat(folderOf(path).c_str(), &folder) == 0 && (folder.st_mode & (S_IWGRP | S_IWOTH)) != 0)
    static_cast<void>(fchmod(file.get(), 0666) == 0);
}

/// Another user's file may be read-only; that is enough for a lock on a local disk.
FileDescriptor openLockFile(const std::string& path) {
  constexpr int how = O_CLOEXEC | O_NONBLOCK | O_NOCTTY | O_NOFOLLOW;
  FileDescriptor file(::open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | how, modeOfNewFile(path)));
  if (file.isOpen()) letOthersLock(file, path);
  const int refusal = errno;
  if (!file.isOpen()) file = FileDescriptor(::open(path.c_str(), O_RDWR | how));
  if (!file.isOpen()) file = FileDescriptor(::open(path.c_str(), O_RDONLY | how));
  if (!file.isOpen() && errno == ENOENT && refusal != EEXIST) errno = refusal;
  return file;
}

bool isOrdinaryFile(const FileDescriptor& file) {
  struct stat status {};
  return fstat(file.get(), &status) == 0 && S_ISREG(status.st_mode);
}

/// Whether the path still refers to this file: it may have been replaced between opening and locking.
bool isStillAt(const std::string& path, const FileDescriptor& file) {
  struct stat there {
  }, here{};
  return stat(path.c_str(), &there) == 0 && fstat(file.get(), &here) == 0 && there.st_dev == here.st_dev &&
         there.st_ino == here.st_ino;
}

int lockNow(const FileDescriptor& file, int kind) {
  int result = 0;
  do result = flock(file.get(), kind | LOCK_NB);
  while (result != 0 && errno == EINTR);
  return result;
}

std::string noteIn(const FileDescriptor& file) {
  std::array<char, 400> note{};
  const ssize_t length = pread(file.get(), note.data(), note.size(), 0);
  return length > 0 ? std::string(note.data(), static_cast<std::size_t>(length)) : "";
}

void leaveNote(const FileDescriptor& file, const std::string& note) {
  if (ftruncate(file.get(), 0) == 0) static_cast<void>(pwrite(file.get(), note.data(), note.size(), 0) > 0);
}

LockAttempt refused(const FileDescriptor& file) {
  // Over a network, a file open for reading cannot be locked exclusively, but a shared lock shows whether somebody
  // holds it.
  const int reason = errno;
  const bool held = reason == EWOULDBLOCK || (lockNow(file, LOCK_SH) != 0 && errno == EWOULDBLOCK);
  if (held) return {LockOutcome::held, nullptr, noteIn(file)};
  return {LockOutcome::notOffered, nullptr, systemMessage(reason)};
}

}  // namespace

LockAttempt lockFile(const std::string& path, const std::string& note) {
  constexpr int tries = 100;  // each failed try found the file replaced while it was being locked
  for (int attempt = 1; attempt <= tries; ++attempt) {
    FileDescriptor file = openLockFile(path);
    if (!file.isOpen() && errno != ELOOP) return {LockOutcome::notWritable, nullptr, systemMessage(errno)};
    if (!file.isOpen() || !isOrdinaryFile(file)) break;
    if (lockNow(file, LOCK_EX) != 0) return refused(file);
    if (!isStillAt(path, file)) continue;
    leaveNote(file, note);
    return {LockOutcome::taken, std::make_unique<DiskLock>(std::move(file)), ""};
  }
  return {LockOutcome::notOrdinary, nullptr, path};
}

}  // namespace korvinel::platform
