#pragma once

#include <string>

#include "values/fixed.h"

namespace korvinel {

/// Panel units per microvolt if `microvoltScale` is the full scale. A scale of 0 is a RuntimeError.
[[nodiscard]] Fixed barScale(int microvoltScale);

/// The x at which a bar ends: on the left panel it grows from x = 258 leftward, no further than 1; on the right panel
/// from 0 rightward, no further than 258. Both whole panel units, ties to even.
[[nodiscard]] double leftBarEnd(Fixed scale, float microvolts);
[[nodiscard]] double rightBarEnd(Fixed scale, float microvolts);

/// "1=basso  ", "2=medio  " or "3=alto!  ": the verdict on a channel's 50 Hz disturbance; 30 to 60 uV is medium.
[[nodiscard]] std::string mainsVerdict(int channel, Fixed microvolts);

}  // namespace korvinel
