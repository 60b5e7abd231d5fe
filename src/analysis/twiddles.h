#pragma once

#include <array>
#include <cstddef>

#include "analysis/transform.h"

namespace korvinel {

/// The factors of all stages: stage s has 2^(s-1), from index 2^(s-1). Index 0 is unused. Real and imaginary parts are
/// kept apart, so that neighbouring factors can be loaded together.
struct StageTwiddles {
  alignas(64) std::array<double, transformLength> re{};
  alignas(64) std::array<double, transformLength> im{};
};

/// Each factor of a stage is computed from the previous one by a product in double, and so accumulates the rounding of
/// all earlier products.
constexpr StageTwiddles multiplyOut() {
  StageTwiddles twiddles{};
  std::size_t next = 1;
  for (int stage = 1; stage <= transformStages; ++stage) {
    const ComplexFactor step = stageFactors[static_cast<std::size_t>(stage) - 1];
    ComplexFactor factor{1, 0};
    for (int j = 0; j < 1 << (stage - 1); ++j, ++next) {
      twiddles.re[next] = factor.re;
      twiddles.im[next] = factor.im;
      factor = {factor.re * step.re - factor.im * step.im, factor.re * step.im + factor.im * step.re};
    }
  }
  return twiddles;
}

inline constexpr StageTwiddles twiddles = multiplyOut();

}  // namespace korvinel
