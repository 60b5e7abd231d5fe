#pragma once

#include <string_view>

#include "eeg/block.h"
#include "eeg/montage.h"
#include "values/bounded.h"

namespace korvinel {

/// The shape of an instrument's stream: frames without header or checksum, a sample of each channel in turn.
struct StreamFormat {
  int channels;
  int bitsPerSample;  ///< a multiple of 8; the low byte comes first
  int zeroLevel;      ///< the code of 0 volts
  int samplesPerSecond;

  [[nodiscard]] constexpr int bytesPerSample() const { return bitsPerSample / 8; }
  [[nodiscard]] constexpr int bytesPerFrame() const { return channels * bytesPerSample(); }
  [[nodiscard]] constexpr int bytesPerBlock() const { return eeg::samplesPerBlock * bytesPerFrame(); }
  /// The port's receive buffer: 400 frames, slightly more than arrive in a turn.
  [[nodiscard]] constexpr int receiveBufferBytes() const { return 400 * bytesPerFrame(); }
  /// Seconds to wait for a block before the line counts as silent: twice the duration of a block.
  [[nodiscard]] constexpr double blockTimeout() const { return 2.0 * eeg::samplesPerBlock / samplesPerSecond; }
};

constexpr StreamFormat instrumentStream{eeg::channelCount, 8, eeg::midLevel, eeg::samplesPerSecond};
static_assert(instrumentStream.bytesPerBlock() == 1024 && instrumentStream.receiveBufferBytes() == 1600);
static_assert(instrumentStream.blockTimeout() == 4.0);

/// Turns frames into samples 1..256 of channels 1..4, in sample units around the mid level. Returns the number of bytes
/// used, those of a block; the rest is ignored. Fewer bytes than a block throw std::out_of_range.
int decodeFrames(std::string_view bytes, const StreamFormat& format, Bounded<float, 4, 258>& block);

}  // namespace korvinel
