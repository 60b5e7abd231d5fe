#pragma once

#include <compare>
#include <cstdint>
#include <cstdlib>
#include <limits>

namespace korvinel {

/// A number with four decimals, held as a signed 64-bit count of ten-thousandths (about +-9.2e14).
/// Conversions and products round to the nearest ten-thousandth, ties to even; sums and differences are exact.
/// A result that does not fit is a RuntimeError (overflow).
class Fixed {
 public:
  static constexpr std::int64_t scale = 10'000;  ///< counts per unit

  constexpr Fixed() = default;
  constexpr Fixed(int whole) : count_(whole * scale) {}  // NOLINT(google-explicit-constructor): integers are exact

  static constexpr Fixed fromCount(std::int64_t tenThousandths) {
    Fixed result;
    result.count_ = tenThousandths;
    return result;
  }

  /// The count nearest to the double product number x 10000, ties to even. NaN counts as overflow.
  static Fixed nearest(double number) {
    const double exact = number * static_cast<double>(scale);
    // Below 2^51 a sum with 1.5 x 2^52 is rounded to a whole number, without the library's call.
    constexpr double rounder = 0x1.8p52, rounderLimit = 0x1p51;
    if (std::abs(exact) < rounderLimit) return fromCount(static_cast<std::int64_t>((exact + rounder) - rounder));
    return nearestToLarge(exact);
  }

  constexpr std::int64_t count() const { return count_; }
  constexpr double toDouble() const { return static_cast<double>(count_) / static_cast<double>(scale); }

  constexpr Fixed& operator+=(Fixed term) {
    if (__builtin_add_overflow(count_, term.count_, &count_)) overflow();
    return *this;
  }
  constexpr Fixed& operator-=(Fixed term) {
    if (__builtin_sub_overflow(count_, term.count_, &count_)) overflow();
    return *this;
  }
  friend constexpr Fixed operator+(Fixed a, Fixed b) { return a += b; }
  friend constexpr Fixed operator-(Fixed a, Fixed b) { return a -= b; }
  constexpr Fixed operator-() const { return Fixed{} - *this; }
  friend constexpr Fixed abs(Fixed number) { return number.count_ < 0 ? -number : number; }

  /// The exact 128-bit product of the counts over 10000, ties to even.
  friend constexpr Fixed operator*(Fixed a, Fixed b) {
    std::int64_t product = 0;
    if (!__builtin_mul_overflow(a.count_, b.count_, &product)) return fromCount(roundedToScale(product));
    const Wide quotient = roundedToScale(static_cast<Wide>(a.count_) * b.count_);
    if (quotient < lowest || quotient > highest) overflow();
    return fromCount(static_cast<std::int64_t>(quotient));
  }

  /// The double nearest to the exact quotient of the two counts, so that 3N / N is exactly 3 (counts below 2^53).
  /// A zero divisor is a RuntimeError.
  friend constexpr double operator/(Fixed a, Fixed b) {
    if (b.count_ == 0) divisionByZero();
    return static_cast<double>(a.count_) / static_cast<double>(b.count_);
  }

  // NOLINTNEXTLINE(modernize-use-nullptr): the zero compared with an ordering is not a pointer
  friend constexpr auto operator<=>(Fixed, Fixed) = default;

 private:
  __extension__ typedef __int128 Wide;
  static constexpr std::int64_t lowest = std::numeric_limits<std::int64_t>::min();
  static constexpr std::int64_t highest = std::numeric_limits<std::int64_t>::max();

  /// product / 10000, ties to even.
  template <typename Integer>
  static constexpr Integer roundedToScale(Integer product) {
    const Integer quotient = product / scale;
    const Integer remainder = product % scale;
    const Integer twice = 2 * (remainder < 0 ? -remainder : remainder);
    if (twice < scale || (twice == scale && quotient % 2 == 0)) return quotient;
    return quotient + (product < 0 ? -1 : 1);
  }

  static Fixed nearestToLarge(double exact);  ///< exact: the number in ten-thousandths
  [[noreturn]] static void overflow();
  [[noreturn]] static void divisionByZero();

  std::int64_t count_ = 0;
};

/// The largest tenth not above the number (toward minus infinity): 12.38 gives 12.3, -0.05 gives -0.1.
constexpr Fixed floorToTenth(Fixed number) {
  constexpr std::int64_t tenth = Fixed::scale / 10;
  const std::int64_t remainder = number.count() % tenth;
  return Fixed::fromCount(number.count() - (remainder < 0 ? remainder + tenth : remainder));
}

/// The same for a floating-point number: its exact value times 10 in double, floored, over 10.
double floorToTenth(double number);

}  // namespace korvinel
