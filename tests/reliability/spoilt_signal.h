#pragma once

#include <algorithm>
#include <cmath>
#include <numbers>
#include <random>

#include "real_eeg.h"

/// Makes a stretch of a channel look as a fault of an electrode or a cable leaves it.
namespace korvinel::spoilt {

/// The same numbers on every machine.
class Dice {
 public:
  explicit Dice(std::uint64_t seed) : engine_(seed) {}
  double between(double least, double most) {
    return least + (most - least) * static_cast<double>(engine_() >> 11) / static_cast<double>(1ULL << 53);
  }
  int below(int limit) { return static_cast<int>(engine_() % static_cast<std::uint64_t>(limit)); }
  double sign() { return below(2) == 0 ? -1 : 1; }
  double noise() { return between(-1, 1) + between(-1, 1) + between(-1, 1); }  ///< deviation 1

 private:
  std::mt19937_64 engine_;
};

struct Stretch {
  std::size_t first, length;
};

using real_eeg::Channel;

template <typename Signal>
Channel changed(const Channel& channel, const Stretch& stretch, Signal&& signal) {
  Channel all = channel;
  for (std::size_t i = 0; i < stretch.length; ++i) {
    float& sample = all[stretch.first + i];
    sample = static_cast<float>(std::clamp(std::round(signal(i, static_cast<double>(sample))), 0.0, 255.0));
  }
  return all;
}

/// The electrode or its cable is off: the amplifier's own noise remains, of half a microvolt.
inline Channel flat(const Channel& channel, const Stretch& stretch, Dice& dice) {
  const double level = 128 + dice.between(-3, 3);
  return changed(channel, stretch, [&](std::size_t, double) { return level + 0.6 * dice.noise(); });
}

/// Swings far beyond the scale, as by a bad reference.
inline Channel swinging(const Channel& channel, const Stretch& stretch, Dice& dice) {
  const double phase = dice.between(0, 2 * std::numbers::pi);
  return changed(channel, stretch, [&](std::size_t i, double sample) {
    return sample + 300 * std::sin(2 * std::numbers::pi * 0.8 * static_cast<double>(i) / 128 + phase);
  });
}

/// The amplifier's range is much too small for what arrives.
inline Channel amplified(const Channel& channel, const Stretch& stretch, Dice& dice) {
  return changed(channel, stretch,
                 [&](std::size_t, double sample) { return 128 + 20 * (sample - 128) + dice.noise(); });
}

/// Stuck at one end of the scale.
inline Channel stuck(const Channel& channel, const Stretch& stretch, Dice& dice) {
  const double level = dice.sign() < 0 ? 0 : 255;
  return changed(channel, stretch, [&](std::size_t, double) { return level; });
}

inline Channel humming(const Channel& channel, const Stretch& stretch, Dice& dice, double microvolts) {
  const double hertz = dice.between(49.9, 50.1);
  const double phase = dice.between(0, 2 * std::numbers::pi);
  return changed(channel, stretch, [&](std::size_t i, double sample) {
    return sample + microvolts * std::sin(2 * std::numbers::pi * hertz * static_cast<double>(i) / 128 + phase);
  });
}

/// A bad contact: every 0.2 to 0.6 s the level jumps up or down, and returns as through an amplifier's coupling of
/// 0.5 Hz. `soft`: each jump takes two samples.
inline Channel loose(const Channel& channel, const Stretch& stretch, Dice& dice, double microvolts, bool soft = false) {
  const double kept = std::exp(-2 * std::numbers::pi * 0.5 / 128);
  double level = 0, pending = 0;
  std::size_t next = 0;
  return changed(channel, stretch, [&](std::size_t i, double sample) {
    level = kept * (level + pending);
    pending = 0;
    if (i == next) {
      const double jump = dice.sign() * dice.between(0.8, 1.2) * microvolts;
      level += soft ? jump / 2 : jump;
      pending = soft ? jump / 2 : 0;
      next += static_cast<std::size_t>(dice.between(0.2, 0.6) * 128);
    }
    return sample + level;
  });
}

}  // namespace korvinel::spoilt
