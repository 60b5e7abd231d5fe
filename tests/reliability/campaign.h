#pragma once

#include <cstdint>
#include <cstdlib>
#include <random>
#include <vector>

/// Campaigns are shortened unless KORVINEL_LONG is set: the same code, seeds and order, but fewer repetitions.
namespace korvinel::campaign {

inline bool isLong() { return std::getenv("KORVINEL_LONG") != nullptr; }

inline int size(int shortened, int whole) { return isLong() ? whole : shortened; }

/// Random numbers that are the same on every machine.
class Dice {
 public:
  explicit Dice(std::uint64_t seed) : engine_(seed) {}
  int below(int limit) { return static_cast<int>(engine_() % static_cast<std::uint64_t>(limit)); }
  int between(int first, int last) { return first + below(last - first + 1); }
  bool oneIn(int count) { return below(count) == 0; }
  template <typename T>
  const T& from(const std::vector<T>& choices) {
    return choices[static_cast<std::size_t>(below(static_cast<int>(choices.size())))];
  }

 private:
  std::mt19937_64 engine_;
};

}  // namespace korvinel::campaign
