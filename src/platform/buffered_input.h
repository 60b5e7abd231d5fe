#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "platform/files.h"

namespace korvinel::platform {

/// Reads a file in large pieces and returns it byte by byte.
class BufferedInput : public InputFile {
 public:
  explicit BufferedInput(std::int64_t size) : size_(size) {}

  int peek() override {
    if (next_ == filled_) {
      filled_ = readPiece(buffer_);
      next_ = 0;
    }
    return next_ == filled_ ? end : static_cast<unsigned char>(buffer_[next_]);
  }
  int take() override {
    const int byte = peek();
    if (byte != end) {
      ++next_;
      ++position_;
    }
    return byte;
  }
  [[nodiscard]] std::int64_t position() const override { return position_; }
  [[nodiscard]] std::int64_t size() const override { return size_; }

 private:
  /// Fills the buffer from its start and returns the number of bytes read; 0 at the end of the file.
  virtual std::size_t readPiece(std::span<char> room) = 0;

  std::array<char, 32'768> buffer_{};
  std::size_t next_ = 0, filled_ = 0;
  std::int64_t size_, position_ = 0;
};

}  // namespace korvinel::platform
