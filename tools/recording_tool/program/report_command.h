#pragma once

#include <string>

#include "recording_tool/workbench.h"

namespace korvinel::tool {

/// Analyses a recording and writes its report as a page (report_page.h).
void report(const std::string& recording, const AnalysisOptions& options, const std::string& output, bool force);

}  // namespace korvinel::tool
