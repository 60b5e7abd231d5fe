#pragma once

#include <string>

#include "recording_tool/export_options.h"

namespace korvinel::tool {

/// Writes a recording as EDF+: one continuous record of 2 s for each block, 1 unit = 1 microvolt, notes and the times
/// of the blocks in the examination as annotations. The file is read back and compared before it gets its name. Reports
/// what could not be preserved. ToolError if it cannot be written.
void exportEdf(const std::string& recording, const std::string& output, const ExportOptions& options);

}  // namespace korvinel::tool
