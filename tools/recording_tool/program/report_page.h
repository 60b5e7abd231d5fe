#pragma once

#include <string>

#include "recording_tool/workbench.h"

namespace korvinel::tool {

/// Writes the report of an opened recording as a page: a PDF, PNG or SVG file, by the ending of `output`. ToolError if
/// it cannot be written, UsageError for any other ending.
void writeReport(const Workbench& bench, const std::string& recording, const std::string& output, bool force);

/// UsageError unless the ending is .pdf, .png or .svg.
void requirePageEnding(const std::string& output);

}  // namespace korvinel::tool
