#pragma once

namespace korvinel {

/// Bytes in sequence, such as a file open for reading.
struct ByteSource {
  virtual ~ByteSource() = default;
  static constexpr int end = -1;
  virtual int peek() = 0;  ///< the next byte 0..255 without taking it, or `end`
  virtual int take() = 0;  ///< the next byte 0..255, or `end`
};

}  // namespace korvinel
