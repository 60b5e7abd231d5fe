#pragma once

#include <array>
#include <cstddef>

namespace korvinel {

[[noreturn]] void throwSubscript();  ///< a RuntimeError (subscript)

namespace detail {
template <typename T, int... Last>
struct BoundedElement;
template <typename T>
struct BoundedElement<T> {
  using Type = T;
};
}  // namespace detail

/// An array with the index range 0..Last, and rows of 0..InnerLast for each further bound: Bounded<float, 4, 258> has
/// rows 0..4 of elements 0..258. An index outside is a RuntimeError (subscript), in release builds too.
/// Elements start at their zero value.
template <typename T, int Last, int... InnerLast>
class Bounded {
 public:
  using Element = typename detail::BoundedElement<T, InnerLast...>::Type;
  static constexpr int last = Last;

  constexpr Element& operator[](int index) {
    check(index);
    return elements_[static_cast<std::size_t>(index)];
  }
  constexpr const Element& operator[](int index) const {
    check(index);
    return elements_[static_cast<std::size_t>(index)];
  }

  /// The elements from index 0 as a plain array.
  constexpr Element* data() { return elements_.data(); }
  constexpr const Element* data() const { return elements_.data(); }

  constexpr auto begin() { return elements_.begin(); }
  constexpr auto end() { return elements_.end(); }
  constexpr auto begin() const { return elements_.begin(); }
  constexpr auto end() const { return elements_.end(); }

  friend constexpr bool operator==(const Bounded&, const Bounded&) = default;

 private:
  static constexpr void check(int index) {
    if (index < 0 || index > Last) throwSubscript();
  }

  std::array<Element, static_cast<std::size_t>(Last) + 1> elements_{};
};

namespace detail {
template <typename T, int Last, int... InnerLast>
struct BoundedElement<T, Last, InnerLast...> {
  using Type = Bounded<T, Last, InnerLast...>;
};
}  // namespace detail

}  // namespace korvinel
