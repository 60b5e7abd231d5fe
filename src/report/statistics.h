#pragma once

#include "eeg/spectrum.h"
#include "values/bounded.h"
#include "values/fixed.h"

namespace korvinel {

/// The used indexes are 1..64.
using ReportSpectrum = Bounded<float, 66>;

/// Mean of a sum over `blocks` blocks, stored as a 32-bit float and floored to one decimal; never "-0".
/// A negative count (a reversed interval) is used unchanged; a count of 0 is a RuntimeError (division by zero).
[[nodiscard]] float meanToTenth(double sum, int blocks);

/// Largest value in the range, at least 0, floored to one decimal.
[[nodiscard]] Fixed bandMaximum(const ReportSpectrum& spectrum, eeg::IndexRange range);
/// Mean value in the range, floored to one decimal.
[[nodiscard]] Fixed bandMean(const ReportSpectrum& spectrum, eeg::IndexRange range);

/// Shifts the whole spectrum so that its mean becomes the pair's coherence.
void levelCoherence(ReportSpectrum& spectrum, float pairCoherence);
/// Scales a spectrum whose maximum is 100 or more to a maximum of 100; leaves any other unchanged.
void capCoherence(ReportSpectrum& spectrum);

}  // namespace korvinel
