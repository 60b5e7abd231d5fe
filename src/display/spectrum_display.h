#pragma once

#include <string>

#include "platform/colour.h"
#include "values/fixed.h"
#include "values/runtime_error.h"

namespace korvinel {

/// Palette index of the bar of a spectrum index: delta red, theta light red, alpha light green, beta light blue, what
/// lies above light magenta.
[[nodiscard]] constexpr int barColour(int spectrumIndex) {
  if (spectrumIndex <= 7) return 4;
  if (spectrumIndex <= 16) return 12;
  if (spectrumIndex <= 26) return 10;
  return spectrumIndex <= 53 ? 9 : 13;
}

/// Panel units a microvolt when `microvoltScale` is the full scale. A scale of 0 is a RuntimeError.
[[nodiscard]] Fixed barScale(int microvoltScale);

/// Where a bar ends: on the left panel it grows from x = 258 leftward, no further than 1; on the right panel from 0
/// rightward, no further than 258. Both whole panel units, ties to even.
[[nodiscard]] double leftBarEnd(Fixed scale, float microvolts);
[[nodiscard]] double rightBarEnd(Fixed scale, float microvolts);

/// "1=basso  ", "2=medio  " or "3=alto!  ": the verdict on a channel's 50 Hz disturbance; 30 to 60 uV is medium.
[[nodiscard]] std::string mainsVerdict(int channel, Fixed microvolts);

}  // namespace korvinel
