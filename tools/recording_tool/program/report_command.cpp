#include "recording_tool/program/report_command.h"

#include "recording_tool/analyse_command.h"
#include "recording_tool/program/report_page.h"
#include "recording_tool/safe_output.h"

namespace korvinel::tool {

void report(const std::string& recording, const AnalysisOptions& options, const std::string& output, bool force) {
  requirePageEnding(output);
  requireApart(output, {recording, options.factorsFile});
  requireWritable(output, recording, force);
  AnalysisOptions shown = options;
  // Without a choice, the panels would show 0 in every band, as if the person had no such rhythm.
  shown.maxima = !shown.means;
  writeReport(*analysed(recording, shown), recording, output, force);
}

}  // namespace korvinel::tool
