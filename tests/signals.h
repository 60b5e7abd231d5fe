#pragma once

#include <cmath>
#include <cstddef>
#include <numbers>
#include <string>

#include "frame/main_state.h"
#include "platform/surface.h"

namespace korvinel {

/// A sine around 0 with `cycles` cycles per block, at sample 1..256.
inline double sineAt(int sample, double cycles, double amplitude, double phase = 0) {
  return amplitude * std::sin(2 * std::numbers::pi * cycles * (sample - 1) / 256 + phase);
}

/// Fills one channel of the current block with `signal(sample)`.
template <typename Signal>
void fillChannel(MainState& state, int channel, Signal&& signal) {
  for (int s = 1; s <= 256; ++s) state.sampleBlock[channel][s] = static_cast<float>(signal(s));
}

template <typename Signal>
void fillAllChannels(MainState& state, Signal&& signal) {
  for (int channel = 1; channel <= 4; ++channel) fillChannel(state, channel, signal);
}

/// The 1024 bytes of a block as the instrument sends it: `signal(channel, sample)`, rounded and clamped to 0..255.
template <typename Signal>
std::string instrumentBlock(Signal&& signal) {
  std::string block;
  for (int s = 1; s <= 256; ++s)
    for (int channel = 1; channel <= 4; ++channel)
      block += static_cast<char>(std::lround(std::fmin(255, std::fmax(0, signal(channel, s)))));
  return block;
}

/// Reproducible noise within -1..1.
class Noise {
 public:
  explicit Noise(unsigned seed) : state_(seed) {}
  double next() {
    state_ = state_ * 1'664'525U + 1'013'904'223U;
    return static_cast<double>(state_ >> 8) / static_cast<double>(1U << 23) - 1.0;
  }

 private:
  unsigned state_;
};

inline std::size_t linesIn(const platform::Surface& surface, platform::Colour colour) {
  std::size_t count = 0;
  for (const platform::Mark& mark : surface.marks())
    count += mark.kind == platform::Mark::Kind::line && mark.colour == colour ? 1 : 0;
  return count;
}

inline bool hasLine(const platform::Surface& surface, double x1, double y1, double x2, double y2,
                    platform::Colour colour) {
  for (const platform::Mark& mark : surface.marks())
    if (mark == platform::Mark{platform::Mark::Kind::line, colour, x1, y1, x2, y2}) return true;
  return false;
}

inline bool hasPoint(const platform::Surface& surface, double x, double y, platform::Colour colour) {
  for (const platform::Mark& mark : surface.marks())
    if (mark == platform::Mark{platform::Mark::Kind::point, colour, x, y, x, y}) return true;
  return false;
}

}  // namespace korvinel
