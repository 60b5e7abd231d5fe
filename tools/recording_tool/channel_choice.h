#pragma once

#include <array>
#include <string>
#include <vector>

namespace korvinel::tool {

/// The four names of a list "F3,F4,T5,T6". UsageError unless there are four.
[[nodiscard]] std::array<std::string, 4> parseChannels(const std::string& list);

/// The signal of each wanted name: the label itself, or the electrode in it ("EEG F3-Ref", "F3.."), ignoring case, T5
/// and T6 also under their newer names P7 and P8; else a number from 1. ToolError, listing the labels, if there is
/// none.
[[nodiscard]] std::array<int, 4> chooseSignals(const std::string& file, const std::vector<std::string>& labels,
                                               const std::array<std::string, 4>& wanted);

}  // namespace korvinel::tool
