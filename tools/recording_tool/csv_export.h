#pragma once

#include <string>

#include "recording_tool/export_options.h"

namespace korvinel::tool {

/// Writes a recording as a table: block, seconds of the examination, microvolts of the four channels, note. ToolError
/// if it cannot be written.
void exportCsv(const std::string& recording, const std::string& output, const ExportOptions& options);

}  // namespace korvinel::tool
