#include "platform/windows/file_lock.h"

#include <array>

#include "platform/windows/file_handle.h"
#include "platform/windows/wide_text.h"

namespace korvinel::platform {
namespace {

void setContent(const FileHandle& file, const std::string& text) {
  DWORD written = 0;
  SetFilePointer(file.get(), 0, nullptr, FILE_BEGIN);
  SetEndOfFile(file.get());
  WriteFile(file.get(), text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
}

class DiskLock : public FileLock {
 public:
  explicit DiskLock(FileHandle file) : file_(std::move(file)) {}
  DiskLock(const DiskLock&) = delete;
  DiskLock& operator=(const DiskLock&) = delete;
  /// A note that outlived its lock would name the wrong holder of the next one.
  ~DiskLock() override { setContent(file_, ""); }

 private:
  FileHandle file_;
};

/// Nobody may remove the file meanwhile. Another user's file may be read-only, which is enough for a lock.
FileHandle openLockFile(const std::string& path) {
  const std::wstring wide = wideFromUtf8(path);
  constexpr DWORD share = FILE_SHARE_READ | FILE_SHARE_WRITE;
  FileHandle file(CreateFileW(wide.c_str(), GENERIC_READ | GENERIC_WRITE, share, nullptr, OPEN_ALWAYS,
                              FILE_ATTRIBUTE_NORMAL, nullptr));
  const DWORD refusal = GetLastError();
  if (!file.isOpen())
    file = FileHandle(
        CreateFileW(wide.c_str(), GENERIC_READ, share, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!file.isOpen()) SetLastError(refusal);
  return file;
}

/// Locks one byte far beyond the note, so that the note can still be read: others can neither read nor write a locked
/// byte.
bool lockNow(const FileHandle& file) {
  OVERLAPPED place{};
  place.OffsetHigh = 0x40000000;
  return LockFileEx(file.get(), LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &place) != 0;
}

std::string noteIn(const FileHandle& file) {
  std::array<char, 400> note{};
  DWORD length = 0;
  SetFilePointer(file.get(), 0, nullptr, FILE_BEGIN);
  ReadFile(file.get(), note.data(), static_cast<DWORD>(note.size()), &length, nullptr);
  return std::string(note.data(), length);
}

}  // namespace

LockAttempt lockFile(const std::string& path, const std::string& note) {
  FileHandle file = openLockFile(path);
  if (!file.isOpen()) return {LockOutcome::notWritable, nullptr, systemMessage(GetLastError())};
  if (lockNow(file)) {
    setContent(file, note);
    return {LockOutcome::taken, std::make_unique<DiskLock>(std::move(file)), ""};
  }
  const DWORD reason = GetLastError();
  if (reason == ERROR_LOCK_VIOLATION || reason == ERROR_IO_PENDING) return {LockOutcome::held, nullptr, noteIn(file)};
  return {LockOutcome::notOffered, nullptr, systemMessage(reason)};
}

}  // namespace korvinel::platform
