#pragma once

#include <string>

#include "instrument/frame_source.h"

namespace korvinel {

/// The next block of a simulated head: 1024 bytes in the order in which the instrument streams them.
inline std::string blockOf(instrument::FrameSource& source) {
  std::string block;
  for (int i = 0; i < 256; ++i) {
    const instrument::Frame frame = source.nextFrame().value();
    for (const std::uint8_t sample : frame) block += static_cast<char>(sample);
  }
  return block;
}

}  // namespace korvinel
