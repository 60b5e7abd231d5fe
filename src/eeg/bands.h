#pragma once

#include <array>
#include <cstddef>

#include "eeg/spectrum.h"

namespace korvinel::eeg {

/// A band of the EEG. The main window writes Alfa, the report Alpha.
struct Band {
  const char* nameInWindow;
  const char* nameInReport;
  IndexRange indexes;
  int colour;  ///< palette index of its bars
};

inline constexpr std::array<Band, 4> bands = {{
    {"Delta", "Delta", {1, 7}, 4},    // 0..3 Hz, red
    {"Theta", "Theta", {8, 16}, 12},  // 3.5..7.5 Hz, light red
    {"Alfa", "Alpha", {17, 26}, 10},  // 8..12.5 Hz, light green
    {"Beta", "Beta", {27, 64}, 9},    // 13..31.5 Hz, light blue
}};
inline constexpr const Band& delta = bands[0];
inline constexpr const Band& theta = bands[1];
inline constexpr const Band& alpha = bands[2];
inline constexpr const Band& beta = bands[3];

/// The last eleven indexes of Beta, and everything above, have their own colour.
constexpr int firstUpperBeta = 54;
constexpr int upperBetaColour = 13;  // light magenta

/// Palette index of the bar of a spectrum index.
[[nodiscard]] constexpr int barColour(int index) {
  if (index >= firstUpperBeta) return upperBetaColour;
  for (const Band& band : bands)
    if (index <= band.indexes.last) return band.colour;
  return upperBetaColour;
}

static_assert(barColour(7) == 4 && barColour(8) == 12 && barColour(53) == 9 && barColour(54) == 13);

}  // namespace korvinel::eeg
