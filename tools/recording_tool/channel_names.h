#pragma once

#include "eeg/montage.h"

namespace korvinel::tool {

/// Headings of tables by channel 1..4 and by pair 1..4.
inline constexpr const char* channelNames[] = {"", eeg::siteOf(1), eeg::siteOf(2), eeg::siteOf(3), eeg::siteOf(4)};
inline constexpr const char* pairNames[] = {"", "F1-F2", "T5-T6", "F1-T5", "F2-T6"};

}  // namespace korvinel::tool
