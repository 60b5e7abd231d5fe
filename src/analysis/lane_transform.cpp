#include "analysis/lane_transform.h"

#include <bit>
#include <cfloat>
#include <cstdint>
#include <cstring>
#include <type_traits>

#include "analysis/twiddles.h"

static_assert(FLT_EVAL_METHOD == 0, "double arithmetic must round to double at every operation");
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic ignored "-Wpsabi"  // no vector leaves this file
#endif
#define KORVINEL_INLINE __attribute__((always_inline)) inline

namespace korvinel {
namespace {

// Values are whole counts of ten-thousandths, held in doubles. Stage s combines groups of 2^(s-1) values into groups of
// twice the size. In the first six stages a row holds one element of every group, the groups in bit-reversed order: the
// lower halves of the pairs are the second half of the row. Then rows are transposed into groups, along which the last
// two stages run.

/// The quotient c / 10000, correctly rounded, for whole c below 2^39: c times the first 14 bits of 1/10000 is exact,
/// and what the rest adds is off by less than 2^-13 units in the last place, while no c / 10000 lies within 1/1250 of
/// such a unit of the middle between two doubles, as 10000 = 16 x 625.
constexpr double perCountFirst = 0x1.a36p-14;
constexpr double perCountRest = (1.0 - perCountFirst * 10'000) / 10'000;
constexpr double countsPerUnit = 10'000;

/// Adding and subtracting it rounds a number below 2^51 to a whole one, ties to even.
constexpr double rounder = 0x1.8p52;
constexpr auto rounderBits = std::bit_cast<std::uint64_t>(rounder);

constexpr std::uint64_t complexRange = std::uint64_t{1} << 29;  // grows to less than 2^39
constexpr std::uint64_t realRange = std::uint64_t{1} << 22;
constexpr int rowStages = 6;

/// Up to the sixth stage, the factor of a quarter turn just swaps the parts: what the truncated pi adds to a real value
/// is below half a count.
consteval bool quarterTurnsAreExact() {
  constexpr double largest = static_cast<double>(realRange << (rowStages - 1));
  for (int stage = 2; stage <= rowStages; ++stage) {
    const auto quarter = static_cast<std::size_t>(1 << (stage - 1)) + static_cast<std::size_t>(1 << (stage - 2));
    const double re = twiddles.re[quarter], im = twiddles.im[quarter] + 1;
    if (re < 0 || re * largest > 0.4 || im * largest > 0.1 || im * largest < -0.1) return false;
  }
  return true;
}
static_assert(quarterTurnsAreExact());

template <int width>
struct Vector {
  typedef double Doubles __attribute__((vector_size(8 * width)));
  typedef std::uint64_t Counts __attribute__((vector_size(8 * width)));
};

using Two = Vector<narrowLanes>::Doubles;
using Four = Vector<wideLanes>::Doubles;

/// From 64 rows of four to four groups of 64.
KORVINEL_INLINE void turnRows(const Two* rows, Two* groups) {
  for (int m = 0; m < 32; ++m, rows += 4) {
    groups[m] = __builtin_shufflevector(rows[0], rows[2], 0, 2);
    groups[m + 32] = __builtin_shufflevector(rows[0], rows[2], 1, 3);
    groups[m + 64] = __builtin_shufflevector(rows[1], rows[3], 0, 2);
    groups[m + 96] = __builtin_shufflevector(rows[1], rows[3], 1, 3);
  }
}

KORVINEL_INLINE void turnRows(const Four* rows, Four* groups) {
  for (int m = 0; m < 16; ++m, rows += 4) {
    const Four evenUpper = __builtin_shufflevector(rows[0], rows[1], 0, 4, 2, 6);
    const Four oddUpper = __builtin_shufflevector(rows[0], rows[1], 1, 5, 3, 7);
    const Four evenLower = __builtin_shufflevector(rows[2], rows[3], 0, 4, 2, 6);
    const Four oddLower = __builtin_shufflevector(rows[2], rows[3], 1, 5, 3, 7);
    groups[m] = __builtin_shufflevector(evenUpper, evenLower, 0, 1, 4, 5);
    groups[m + 16] = __builtin_shufflevector(oddUpper, oddLower, 0, 1, 4, 5);
    groups[m + 32] = __builtin_shufflevector(evenUpper, evenLower, 2, 3, 6, 7);
    groups[m + 48] = __builtin_shufflevector(oddUpper, oddLower, 2, 3, 6, 7);
  }
}

/// One transform, `width` values at a time. Vectors are passed by reference: by value they would need the wide
/// registers that only some callers have.
template <int width>
class LaneTransform {
 public:
  /// See transformInLanes.
  static KORVINEL_INLINE bool run(Fixed* re, Fixed* im) {
    Parts a, b;
    if (!startComplex(re, im, b)) return false;
    complexRows(b, a);
    finish(a, b, re, im);
    return true;
  }

  /// See transformRealInLanes.
  static KORVINEL_INLINE bool runReal(Fixed* re, Fixed* im) {
    Parts a, b;
    if (!startReal(re, a)) return false;
    realRows(a, b);
    finish(a, b, re, im);
    return true;
  }

 private:
  using Doubles = typename Vector<width>::Doubles;
  using Counts = typename Vector<width>::Counts;
  static constexpr int length = transformLength / width;
  static constexpr int quarter = length / 4;

  struct Parts {
    Doubles re[length], im[length];
  };

  static KORVINEL_INLINE void load(const Fixed* values, int i, Counts& counts) {
    static_assert(sizeof(Fixed) == sizeof(std::uint64_t) && std::is_trivially_copyable_v<Fixed>);
    std::memcpy(&counts, values + 1 + i * width, sizeof counts);
  }

  /// Values within +-range, a power of two, set no bit above 2 x range - 1 here.
  static KORVINEL_INLINE void load(const Fixed* values, int i, std::uint64_t range, Doubles& numbers, Counts& bits) {
    Counts counts;
    load(values, i, counts);
    bits |= counts + range;
    numbers = reinterpret_cast<Doubles>(counts + rounderBits) - rounder;
  }

  static KORVINEL_INLINE void store(const Doubles& numbers, Fixed* values, int i) {
    const Counts counts = reinterpret_cast<Counts>(numbers + rounder) - rounderBits;
    std::memcpy(static_cast<void*>(values + 1 + i * width), &counts, sizeof counts);
  }

  static KORVINEL_INLINE bool fits(const Counts& bits, std::uint64_t limit) {
    for (int lane = 0; lane < width; ++lane)
      if ((bits[lane] & ~(limit - 1)) != 0) return false;
    return true;
  }

  /// The butterfly of transformPlainly. `fr`, `fi`: the factor, for all lanes or one for each.
  template <typename Factor>
  static KORVINEL_INLINE void combine(const Parts& in, int upper, int lower, const Factor& fr, const Factor& fi,
                                      Parts& out, int sum, int difference) {
    const Doubles re = in.re[lower] * perCountFirst + in.re[lower] * perCountRest;
    const Doubles im = in.im[lower] * perCountFirst + in.im[lower] * perCountRest;
    Doubles turnedRe = (re * fr - im * fi) * countsPerUnit;
    Doubles turnedIm = (re * fi + im * fr) * countsPerUnit;
    turnedRe = (turnedRe + rounder) - rounder;
    turnedIm = (turnedIm + rounder) - rounder;
    out.re[difference] = in.re[upper] - turnedRe;
    out.im[difference] = in.im[upper] - turnedIm;
    out.re[sum] = in.re[upper] + turnedRe;
    out.im[sum] = in.im[upper] + turnedIm;
  }

  template <int stage>
  static KORVINEL_INLINE void combineRow(const Parts& in, Parts& out, int row) {
    constexpr int half = 1 << (stage - 1), rowLength = (transformLength >> stage) / width;
    const auto factor = static_cast<std::size_t>(half) + static_cast<std::size_t>(row);
    const double fr = twiddles.re[factor];
    const double fi = twiddles.im[factor];
    for (int t = 0; t < rowLength; ++t) {
      const int upper = 2 * row * rowLength + t;
      combine(in, upper, upper + rowLength, fr, fi, out, row * rowLength + t, (row + half) * rowLength + t);
    }
  }

  /// Row 0, whose factor is 1.
  template <int stage>
  static KORVINEL_INLINE void addRow(const Doubles* in, Doubles* out) {
    constexpr int half = 1 << (stage - 1), rowLength = (transformLength >> stage) / width;
    for (int t = 0; t < rowLength; ++t) {
      out[t] = in[t] + in[t + rowLength];
      out[half * rowLength + t] = in[t] - in[t + rowLength];
    }
  }

  template <int stage>
  static KORVINEL_INLINE void rowStage(const Parts& in, Parts& out) {
    addRow<stage>(in.re, out.re);
    addRow<stage>(in.im, out.im);
    for (int row = 1; row < 1 << (stage - 1); ++row) combineRow<stage>(in, out, row);
  }

  /// The same for real values: the imaginary part of row 0, and of the row rotated by a quarter turn, is 0 and neither
  /// written nor read.
  template <int stage>
  static KORVINEL_INLINE void realRowStage(const Parts& in, Parts& out) {
    constexpr int half = 1 << (stage - 1), rowLength = (transformLength >> stage) / width;
    addRow<stage>(in.re, out.re);
    for (int row = 1; row < half / 2; ++row) combineRow<stage>(in, out, row);
    for (int t = 0; t < rowLength; ++t) {
      const int upper = half * rowLength + t, sum = half / 2 * rowLength + t, difference = sum + half * rowLength;
      out.re[sum] = out.re[difference] = in.re[upper];
      out.im[sum] = -in.re[upper + rowLength];
      out.im[difference] = in.re[upper + rowLength];
    }
    for (int row = half / 2 + 1; row < half; ++row) combineRow<stage>(in, out, row);
  }

  /// Stage 1; returns whether all values are within the range.
  static KORVINEL_INLINE bool startComplex(const Fixed* re, const Fixed* im, Parts& out) {
    Counts bits{};
    Parts in;
    for (int i = 0; i < length; ++i) {
      load(re, i, complexRange, in.re[i], bits);
      load(im, i, complexRange, in.im[i], bits);
    }
    addRow<1>(in.re, out.re);
    addRow<1>(in.im, out.im);
    return fits(bits, 2 * complexRange);
  }

  static KORVINEL_INLINE void complexRows(Parts& a, Parts& b) {
    rowStage<2>(a, b);
    rowStage<3>(b, a);
    rowStage<4>(a, b);
    rowStage<5>(b, a);
    rowStage<6>(a, b);
  }

  /// Stages 1 and 2, which only add and swap; returns whether all values are within the range.
  static KORVINEL_INLINE bool startReal(const Fixed* re, Parts& out) {
    Counts bits{};
    for (int i = 0; i < quarter; ++i) {
      Doubles first, second, third, fourth;
      load(re, i, realRange, first, bits);
      load(re, i + quarter, realRange, second, bits);
      load(re, i + 2 * quarter, realRange, third, bits);
      load(re, i + 3 * quarter, realRange, fourth, bits);
      const Doubles evenSum = first + third, oddSum = second + fourth;
      out.re[i] = evenSum + oddSum;
      out.re[i + 2 * quarter] = evenSum - oddSum;
      out.re[i + quarter] = out.re[i + 3 * quarter] = first - third;
      out.im[i + quarter] = fourth - second;
      out.im[i + 3 * quarter] = second - fourth;
    }
    return fits(bits, 2 * realRange);
  }

  static KORVINEL_INLINE void realRows(Parts& a, Parts& b) {
    realRowStage<3>(a, b);
    realRowStage<4>(b, a);
    realRowStage<5>(a, b);
    realRowStage<6>(b, a);
    for (int i = 0; i < 4 / width; ++i) a.im[i] = a.im[length / 2 + i] = Doubles{};
  }

  /// Stage 7: two groups.
  static KORVINEL_INLINE void pairGroups(const Parts& in, Parts& out) {
    const auto* fr = reinterpret_cast<const Doubles*>(twiddles.re.data() + 64);
    const auto* fi = reinterpret_cast<const Doubles*>(twiddles.im.data() + 64);
    for (int group = 0; group < 2; ++group)
      for (int i = 0; i < quarter; ++i) {
        const int upper = group * quarter + i, sum = upper + group * quarter;
        combine(in, upper, upper + length / 2, fr[i], fi[i], out, sum, sum + quarter);
      }
  }

  /// Stage 8, and back to counts.
  static KORVINEL_INLINE void joinHalves(const Parts& in, Parts& out, Fixed* re, Fixed* im) {
    const auto* fr = reinterpret_cast<const Doubles*>(twiddles.re.data() + 128);
    const auto* fi = reinterpret_cast<const Doubles*>(twiddles.im.data() + 128);
    for (int i = 0; i < length / 2; ++i) {
      combine(in, i, i + length / 2, fr[i], fi[i], out, i, i + length / 2);
      for (const int place : {i, i + length / 2}) {
        store(out.re[place], re, place);
        store(out.im[place], im, place);
      }
    }
  }

  /// Takes the rows of four in `a`.
  static KORVINEL_INLINE void finish(Parts& a, Parts& b, Fixed* re, Fixed* im) {
    turnRows(a.re, b.re);
    turnRows(a.im, b.im);
    pairGroups(b, a);
    joinHalves(a, b, re, im);
  }
};

bool transformNarrow(Fixed* re, Fixed* im) { return LaneTransform<narrowLanes>::run(re, im); }
bool transformRealNarrow(Fixed* re, Fixed* im) { return LaneTransform<narrowLanes>::runReal(re, im); }

#if defined(__x86_64__)
#define KORVINEL_WIDE __attribute__((target("avx2")))
KORVINEL_WIDE bool transformWide(Fixed* re, Fixed* im) { return LaneTransform<wideLanes>::run(re, im); }
KORVINEL_WIDE bool transformRealWide(Fixed* re, Fixed* im) { return LaneTransform<wideLanes>::runReal(re, im); }
#endif

}  // namespace

int widestLanes() {
#if defined(__x86_64__)
  if (__builtin_cpu_supports("avx2")) return wideLanes;
#endif
  return narrowLanes;
}

bool transformInLanes(Fixed* re, Fixed* im, int lanes) {
#if defined(__x86_64__)
  if (lanes == wideLanes) return transformWide(re, im);
#endif
  return transformNarrow(re, im);
}

bool transformRealInLanes(Fixed* re, Fixed* im, int lanes) {
#if defined(__x86_64__)
  if (lanes == wideLanes) return transformRealWide(re, im);
#endif
  return transformRealNarrow(re, im);
}

}  // namespace korvinel
