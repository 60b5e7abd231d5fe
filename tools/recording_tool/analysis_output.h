#pragma once

#include <string>
#include <utility>
#include <vector>

#include "recording_tool/json_text.h"
#include "recording_tool/workbench.h"

namespace korvinel::tool {

/// Everything calculated for an opened recording and its report, in the layout described in the manual page. Arrays
/// hold the used indexes in ascending order.
[[nodiscard]] Json analysisJson(const Workbench& bench);

/// The same as tables: file name and content (CSV with a header line).
[[nodiscard]] std::vector<std::pair<std::string, std::string>> analysisTables(const Workbench& bench);

/// The fault in a word or two; "" = none.
[[nodiscard]] std::string reportError(const Workbench& bench);

/// The band arrays of a report, "maxDelta" to "meanBeta": every band's maxima, then every band's means.
using BandValues = std::pair<std::string, const Bounded<Fixed, 4>*>;
[[nodiscard]] std::vector<BandValues> bandsOf(const ReportState& report);
[[nodiscard]] std::vector<std::string> bandValueNames();  ///< their names, in the same order

}  // namespace korvinel::tool
