#pragma once

namespace korvinel::eeg {

/// A block is what the instrument is asked for at once: 256 samples of each channel, two seconds of signal.
constexpr int samplesPerSecond = 128;
constexpr int samplesPerBlock = 256;
constexpr int signalSecondsPerBlock = samplesPerBlock / samplesPerSecond;

/// What a block counts for in the examination, the gap before the next one included: labels, time strip and report
/// turn blocks into time by this.
constexpr int secondsPerBlock = 3;

/// The turn that ends an examination, and the block before which the reading of a file ends.
constexpr int blockLimit = 200;
constexpr int mostBlocks = blockLimit - 1;  ///< blocks that an examination can have

constexpr int midLevel = 128;  ///< the sample of no voltage; larger is positive and drawn upward

}  // namespace korvinel::eeg
