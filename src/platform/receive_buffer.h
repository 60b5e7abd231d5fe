#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

namespace korvinel::platform {

/// What has arrived on a serial line and has not been read, oldest first.
class ReceiveBuffer {
 public:
  /// `bytes`: 0 or more; what arrives beyond it is lost, as on the wire. What is here already stays.
  void setCapacity(int bytes) { capacity_ = static_cast<std::size_t>(bytes); }
  void setReadLength(int bytes) { readLength_ = static_cast<std::size_t>(bytes); }  ///< what one read takes; 0 = all
  [[nodiscard]] int capacity() const { return static_cast<int>(capacity_); }
  [[nodiscard]] int readLength() const { return static_cast<int>(readLength_); }

  [[nodiscard]] int waiting() const { return static_cast<int>(bytes_.size()); }
  void keep(std::string_view arrived) { bytes_ += arrived.substr(0, capacity_ - std::min(capacity_, bytes_.size())); }
  void clear() { bytes_.clear(); }

  /// Takes the oldest bytes, at most the read length. Fewer, even none, is no error.
  [[nodiscard]] std::string read() {
    const std::size_t count = readLength_ == 0 ? bytes_.size() : std::min(bytes_.size(), readLength_);
    std::string taken = bytes_.substr(0, count);
    bytes_.erase(0, count);
    return taken;
  }

 private:
  std::size_t capacity_ = 1600;
  std::size_t readLength_ = 0;
  std::string bytes_;
};

}  // namespace korvinel::platform
