#pragma once

#include <array>

#include "eeg/spectrum.h"
#include "values/fixed.h"

namespace korvinel {

/// The 256-point transform of one channel, on arrays indexed from 1: index i holds i - 1 cycles per block. Every value
/// is rounded to four decimals at every butterfly, so results depend on the order of the arithmetic.

constexpr int transformLength = eeg::samplesPerBlock;
using eeg::keptIndexes;  ///< a spectrum keeps indexes 1..128
constexpr int transformStages = 8;

struct ComplexFactor {
  double re, im;
};

/// Stage 1..8 rotates by 1/2^stage of a circle at each step: (cos(pi / 2^(stage-1)), -sin(pi / 2^(stage-1))), pi taken
/// as 3.14159265. Mathematics libraries differ in the last bits of sine and cosine, so these are the doubles nearest to
/// the true values, written out.
constexpr std::array<ComplexFactor, transformStages> stageFactors = {{{-0x1.0000000000000p+0, -0x1.ed609d1a62633p-29},
                                                                      {0x1.ed609d1a62633p-30, -0x1.0000000000000p+0},
                                                                      {0x1.6a09e66d67383p-1, -0x1.6a09e66280416p-1},
                                                                      {0x1.d906bcf4a271cp-1, -0x1.87de2a63cb4d3p-2},
                                                                      {0x1.f6297cffd60bdp-1, -0x1.8f8b83bf0ac9ep-3},
                                                                      {0x1.fd88da3d2a806p-1, -0x1.917a6bbaef411p-4},
                                                                      {0x1.ff621e379ce54p-1, -0x1.91f65f092a5f6p-5},
                                                                      {0x1.ffd886084e544p-1, -0x1.92155f72817d9p-6}}};

/// Transforms 256 values in place: bit-reversal reordering, then eight stages of butterflies.
/// `re`, `im`: indexes 1..256 are used.
void transform(Fixed* re, Fixed* im);

/// The same for 256 real values: `im` is output only.
void transformReal(Fixed* re, Fixed* im);

/// The inverse, scaled by 1/256. `re`, `im`: indexes 1..256; index 0 is not transformed, but is scaled with the rest.
void invertTransform(Fixed* re, Fixed* im);

/// Replaces index 1, the block's sum, by half of the first harmonic: no spectrum contains the block's mean level.
void replaceZeroFrequency(Fixed* re, Fixed* im);

/// Magnitudes of indexes 1..128, scaled so that the largest is 150. A spectrum below 0.1 throughout is scaled by 0.1
/// instead, so that a flat block gives zeros. `re`, `im`, `shape`: indexes 1..128 are used.
void magnitudeShape(const Fixed* re, const Fixed* im, Fixed* shape);

}  // namespace korvinel
