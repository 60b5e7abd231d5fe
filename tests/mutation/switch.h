#pragma once

// Put before every source of the campaign's build. Each place that can be changed has a number and asks here whether it
// is the one to change; KORVINEL_CHANGE names it. Without that variable nothing is changed.

#include <cmath>
#include <type_traits>

namespace korvinel_change {

constexpr int mostPlaces = 1 << 17;

/// Constant from the start: static objects of other files may ask before any code has run.
struct Run {
  int chosen = -1;                   ///< the place to change, -1: none
  unsigned char* reached = nullptr;  ///< by place; null until `begin`
};
extern Run run;
void begin();

inline bool on(int place) {
  if (run.reached == nullptr) begin();
  run.reached[place] = 1;
  return place == run.chosen;
}

/// In constexpr functions; what the compiler calculates is never changed.
constexpr bool onAtRunTime(int place) { return __builtin_is_constant_evaluated() ? false : on(place); }

enum class Op { less, lessEqual, greater, greaterEqual, equal, notEqual, plus, minus, times, divided };

template <Op op, typename A, typename B>
constexpr decltype(auto) apply(const A& a, const B& b) {
  if constexpr (op == Op::less) return a < b;
  if constexpr (op == Op::lessEqual) return a <= b;
  if constexpr (op == Op::greater) return a > b;
  if constexpr (op == Op::greaterEqual) return a >= b;
  if constexpr (op == Op::equal) return a == b;
  if constexpr (op == Op::notEqual) return a != b;
  if constexpr (op == Op::plus) return a + b;
  if constexpr (op == Op::minus) return a - b;
  if constexpr (op == Op::times) return a * b;
  if constexpr (op == Op::divided) return a / b;
}

template <Op op, Op other, typename A, typename B>
constexpr auto either(bool changed, const A& a, const B& b) {
  using Result = decltype(apply<op>(a, b));
  return changed ? static_cast<Result>(apply<other>(a, b)) : apply<op>(a, b);
}

/// `a && b` or `a || b`; `b` is only asked where the language would.
template <typename B>
constexpr bool andOr(bool isAnd, bool a, const B& b) {
  return isAnd ? a && b() : a || b();
}

/// Which of `count` neighbouring statements comes at `turn`; place first + i exchanges the i-th and the next.
inline int order(int first, int count, int turn) {
  for (int i = 0; i + 1 < count; ++i)
    if (on(first + i)) return turn == i ? i + 1 : turn == i + 1 ? i : turn;
  return turn;
}

constexpr double narrowed(bool changed, double value) {
  return changed ? static_cast<double>(static_cast<float>(value)) : value;
}
inline double truncated(bool changed, double value) { return changed ? std::trunc(value) : value; }

}  // namespace korvinel_change
