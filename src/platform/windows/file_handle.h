#pragma once

#include <windows.h>

#include <utility>

namespace korvinel::platform {

/// An open file or device of the system, closed with the object.
class FileHandle {
 public:
  FileHandle() = default;
  explicit FileHandle(HANDLE handle) : handle_(handle) {}
  FileHandle(FileHandle&& other) noexcept : handle_(std::exchange(other.handle_, INVALID_HANDLE_VALUE)) {}
  FileHandle& operator=(FileHandle&& other) noexcept {
    std::swap(handle_, other.handle_);
    return *this;
  }
  ~FileHandle() { reset(); }

  void reset() {
    if (isOpen()) CloseHandle(handle_);
    handle_ = INVALID_HANDLE_VALUE;
  }
  [[nodiscard]] HANDLE get() const { return handle_; }
  [[nodiscard]] bool isOpen() const { return handle_ != INVALID_HANDLE_VALUE; }

 private:
  HANDLE handle_ = INVALID_HANDLE_VALUE;
};

}  // namespace korvinel::platform
