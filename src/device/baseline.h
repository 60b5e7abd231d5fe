#pragma once

#include <array>

namespace korvinel {

constexpr int baselinePasses = 400;

/// Turns one channel's signal into its baseline (slow drifts and eye movements): 400 passes of the mean of three
/// neighbours, in place from the first sample to the last, with the edge copies renewed after each pass.
/// `signal`: indexes 0..sampleCount + 1, of which 1..sampleCount hold the samples. Each mean is calculated in double
/// and stored as a 32-bit float.
void smoothToBaseline(float* signal, int sampleCount);

/// The same for four channels at once, with results equal to the last bit: the channels run side by side, and several
/// passes run together. Each pass trails the previous one by two samples, as a mean needs its left neighbour from the
/// same pass and its right one from the previous pass.
void smoothChannelsToBaseline(const std::array<float*, 4>& signals, int sampleCount);

}  // namespace korvinel
