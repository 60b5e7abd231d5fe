#pragma once

#include <cstdint>
#include <limits>

namespace korvinel {

/// A signed 16-bit number. Reads as an int; storing a value outside -32768..32767 is a RuntimeError (overflow).
class Int16 {
 public:
  constexpr Int16() = default;
  constexpr Int16(int number)
      : value_(checked(number)) {}  // NOLINT(google-explicit-constructor): a field reads as a number

  /// The nearest integer, ties to even: 0.5 gives 0, 1.5 gives 2. NaN counts as overflow.
  static Int16 nearest(double number);

  constexpr operator int() const { return value_; }  // NOLINT(google-explicit-constructor)

  constexpr Int16& operator+=(int term) { return *this = Int16(sumOf(value_, term)); }
  constexpr Int16& operator-=(int term) { return *this = Int16(sumOf(value_, -static_cast<std::int64_t>(term))); }
  constexpr Int16& operator++() { return *this += 1; }

 private:
  static constexpr int minimum = std::numeric_limits<std::int16_t>::min();
  static constexpr int maximum = std::numeric_limits<std::int16_t>::max();

  [[noreturn]] static void overflow();
  static constexpr std::int16_t checked(int number) {
    if (number < minimum || number > maximum) overflow();
    return static_cast<std::int16_t>(number);
  }
  static constexpr int sumOf(int first, std::int64_t second) {
    const std::int64_t sum = first + second;
    if (sum < minimum || sum > maximum) overflow();
    return static_cast<int>(sum);
  }

  std::int16_t value_ = 0;
};

}  // namespace korvinel
