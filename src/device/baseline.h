#pragma once

namespace korvinel {

/// Turns one channel's signal into its baseline, the slow drifts and eye movements: 400 passes of the mean of three
/// neighbours, in place from the first sample to the last, with edge copies renewed after each pass.
/// `signal`: indexes 0..sampleCount + 1, of which 1..sampleCount hold the samples. Each mean is calculated in double
/// and stored as a 32-bit float.
void smoothToBaseline(float* signal, int sampleCount);

constexpr int baselinePasses = 400;

}  // namespace korvinel
