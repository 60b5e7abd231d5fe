#pragma once

#include <array>
#include <string>
#include <vector>

namespace korvinel::tool {

/// The four names of a list "F3,F4,T5,T6". UsageError for another number of names.
[[nodiscard]] std::array<std::string, 4> parseChannels(const std::string& list);

/// The signal of each wanted name: the label itself, or the electrode in it ("EEG F3-Ref", "F3.."), upper and lower
/// case alike, T5 and T6 also as P7 and P8, their newer names; else a number from 1. ToolError, naming the labels,
/// where there is none.
[[nodiscard]] std::array<int, 4> chooseSignals(const std::string& file, const std::vector<std::string>& labels,
                                               const std::array<std::string, 4>& wanted);

}  // namespace korvinel::tool
