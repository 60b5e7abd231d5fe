#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

namespace korvinel::platform {

/// Bytes received on a serial line and not yet read, oldest first: single bytes, or frames of a fixed length. Frames
/// are read, discarded and lost as a whole, so that a read never cuts one.
class ReceiveBuffer {
 public:
  /// `bytes`: 0 or more; what arrives beyond it is lost, as on the wire. What is already held stays.
  void setCapacity(int bytes) { capacity_ = static_cast<std::size_t>(bytes); }
  void setReadLength(int bytes) {
    readLength_ = static_cast<std::size_t>(bytes);
  }  ///< the most that one read returns; 0 = all
  [[nodiscard]] int capacity() const { return static_cast<int>(capacity_); }
  [[nodiscard]] int readLength() const { return static_cast<int>(readLength_); }

  /// The next byte is the first of a frame; what is held is dropped. `bytesPerFrame`: 1 or more; 1 = single bytes.
  void expectFrames(int bytesPerFrame);
  [[nodiscard]] bool hasUnfinishedFrame() const { return !unfinished_.empty(); }
  void dropUnfinished();  ///< drops the unfinished frame: the next byte is the first of a frame

  [[nodiscard]] int waiting() const { return static_cast<int>(bytes_.size()); }  ///< bytes of whole frames
  void keep(std::string_view arrived);
  void discard();                    ///< drops what is held; the rest of an unfinished frame is dropped as it arrives
  void clear() { expectFrames(1); }  ///< forgets everything: single bytes again
  [[nodiscard]] std::string read();  ///< the oldest bytes, at most the read length, only whole frames

 private:
  void closeFrame();

  std::size_t capacity_ = 1600;
  std::size_t readLength_ = 0;
  std::size_t frameBytes_ = 1;
  std::string bytes_;
  std::string unfinished_;       // the beginning of a frame, never all of it
  bool dropUnfinished_ = false;  // its beginning has been discarded
};

inline void ReceiveBuffer::expectFrames(int bytesPerFrame) {
  frameBytes_ = static_cast<std::size_t>(bytesPerFrame);
  bytes_.clear();
  dropUnfinished();
}

inline void ReceiveBuffer::keep(std::string_view arrived) {
  for (const char byte : arrived) {
    unfinished_ += byte;
    if (unfinished_.size() == frameBytes_) closeFrame();
  }
}

inline void ReceiveBuffer::closeFrame() {
  if (!dropUnfinished_ && bytes_.size() + frameBytes_ <= capacity_) bytes_ += unfinished_;
  dropUnfinished();
}

inline void ReceiveBuffer::dropUnfinished() {
  unfinished_.clear();
  dropUnfinished_ = false;
}

inline void ReceiveBuffer::discard() {
  bytes_.clear();
  dropUnfinished_ = !unfinished_.empty();
}

inline std::string ReceiveBuffer::read() {
  const std::size_t most = readLength_ == 0 ? bytes_.size() : std::min(bytes_.size(), readLength_);
  const std::size_t count = most - most % frameBytes_;
  std::string taken = bytes_.substr(0, count);
  bytes_.erase(0, count);
  return taken;
}

}  // namespace korvinel::platform
