#pragma once

#include <span>

#include "eeg/block.h"

/// What can be measured in one channel of a block as the instrument sent it. One sample unit is one microvolt.
namespace korvinel::guidance {

using ChannelSamples = std::span<const float, eeg::samplesPerBlock>;

/// 0..1: the share of samples at either end of the instrument's scale, 0 and 255.
[[nodiscard]] double shareAtLimits(ChannelSamples samples);

/// The length, in samples, of the longest stretch whose samples differ by at most `range`.
[[nodiscard]] int longestStill(ChannelSamples samples, float range);

struct Hum {
  double amplitude = 0;       ///< of the sine at 50 Hz, microvolts
  double overNeighbours = 0;  ///< that amplitude over the usual one at 43, 45, 55 and 57 Hz
};
/// The hum in the second that has most of it; seconds are taken every quarter of a second, and fade in and out. A
/// second whose hum is below `leastAmplitude`, or does not stand out by `leastOverNeighbours`, is left aside; 0, 0 if
/// none is left.
[[nodiscard]] Hum mainsHum(ChannelSamples samples, double leastAmplitude, double leastOverNeighbours);

/// The changes between samples some places apart, microvolts.
struct Jumps {
  double largest = 0;
  double third = 0;  ///< the third largest; samples close to a larger change do not count again
  double usual = 0;  ///< the median, at least 1
};
[[nodiscard]] Jumps jumps(ChannelSamples samples, int apart);

/// 0..1: the share of the block in which the mean over a fifth of a second is more than `distance` from the mid level.
[[nodiscard]] double shareDisplaced(ChannelSamples samples, double distance);

}  // namespace korvinel::guidance
