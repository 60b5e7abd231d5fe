#pragma once

#include <cstdint>

namespace korvinel::instrument {

/// A small generator of our own, so that a seed gives the same signal with every standard library. Recurrence:
/// splitmix64 (Steele, Lea and Flood, Fast splittable pseudorandom number generators, 2014).
class Random {
 public:
  explicit Random(std::uint64_t seed) : state_(seed) {}

  std::uint64_t next() {
    std::uint64_t mixed = (state_ += 0x9E3779B97F4A7C15U);
    mixed = (mixed ^ (mixed >> 30U)) * 0xBF58476D1CE4E5B9U;
    mixed = (mixed ^ (mixed >> 27U)) * 0x94D049BB133111EBU;
    return mixed ^ (mixed >> 31U);
  }

  double between(double low, double high) {  ///< uniform, `high` excluded
    return low + (high - low) * (static_cast<double>(next() >> 11U) * 0x1p-53);
  }

  /// Nearly normal, mean 0, deviation 1, never beyond 6: the sum of twelve uniform numbers, as the last bits of a
  /// logarithm differ between mathematics libraries.
  double normal() {
    double sum = -6;
    for (int term = 0; term < 12; ++term) sum += between(0, 1);
    return sum;
  }

 private:
  std::uint64_t state_;
};

}  // namespace korvinel::instrument
