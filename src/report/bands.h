#pragma once

namespace korvinel {

/// A band of the EEG by its spectrum indexes, two per hertz, both ends included.
struct Band {
  int first, last;
  constexpr int size() const { return last - first + 1; }
};

constexpr Band deltaBand{1, 7};
constexpr Band thetaBand{8, 16};
constexpr Band alphaBand{17, 26};
constexpr Band betaBand{27, 64};

constexpr int reportBins = 64;  ///< spectrum indexes 1..64 are reported, up to 31.5 Hz

}  // namespace korvinel
