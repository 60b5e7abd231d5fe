#pragma once

#include "eeg/block.h"

namespace korvinel::eeg {

/// Spectrum indexes count from 1: index i of a block's transform holds i - 1 cycles per block, so index 1 is 0 Hz.
constexpr int indexesPerHertz = signalSecondsPerBlock;
constexpr int keptIndexes = samplesPerBlock / 2;      ///< 1..128 are kept
constexpr int reportedIndexes = samplesPerBlock / 4;  ///< 1..64, up to 31.5 Hz, are drawn and reported

[[nodiscard]] constexpr double hertzOf(int index) { return (index - 1) / static_cast<double>(indexesPerHertz); }

/// A range of spectrum indexes, both ends included.
struct IndexRange {
  int first, last;
  [[nodiscard]] constexpr int size() const { return last - first + 1; }
};

constexpr IndexRange mainsRange{100, 114};  ///< 49.5..56.5 Hz, the mains disturbance
constexpr IndexRange reportedRange{1, reportedIndexes};

static_assert(hertzOf(mainsRange.first) == 49.5 && hertzOf(reportedIndexes) == 31.5);

}  // namespace korvinel::eeg
