#pragma once

namespace korvinel::eeg {

/// A block is the amount of signal requested at a time: 256 samples of each channel, two seconds.
constexpr int samplesPerSecond = 128;
constexpr int samplesPerBlock = 256;
constexpr int signalSecondsPerBlock = samplesPerBlock / samplesPerSecond;

/// Seconds of examination per block, the gap before the next one included: labels, time strip and report convert blocks
/// to time with it.
constexpr int secondsPerBlock = 3;

/// The turn that ends an examination; reading a file stops before this block.
constexpr int blockLimit = 200;
constexpr int mostBlocks = blockLimit - 1;  ///< most blocks of an examination

constexpr int midLevel = 128;  ///< the sample at 0 volts; larger is positive and drawn upward

}  // namespace korvinel::eeg
