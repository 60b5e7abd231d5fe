#include "recording_tool/program/report_page.h"

#include <filesystem>
#include <optional>

#include "guidance/report_standing.h"
#include "guidance/trial.h"
#include "platform/page/page_writer.h"
#include "recording_tool/analysis_output.h"
#include "recording_tool/messages.h"
#include "recording_tool/safe_output.h"
#include "recording_tool/tool_error.h"
#include "recording_tool/utf8_path.h"
#include "report/report_geometry.h"
#include "values/code_page.h"
#include "values/runtime_error.h"

namespace korvinel::tool {
namespace {

using platform::PageFormat;
using platform::Rect;

std::optional<PageFormat> formatOf(const std::string& output) {
  const std::string ending = upperCase(utf8Of(pathOf(output).extension()));
  if (ending == ".PDF") return PageFormat::pdf;
  if (ending == ".PNG") return PageFormat::png;
  if (ending == ".SVG") return PageFormat::svg;
  return {};
}

/// The texts of the window's labels and check boxes, as surfaces beside the panels.
struct Labels {
  explicit Labels(const ReportWindow& window) {
    trial.printAt(0, 2, platform::Colour::black, guidance::trialNotice);
    interval.printAt(0, 2, platform::Colour::black, window.intervalLabel.text());
    if (window.maximumCheck.checked()) choice.printAt(0, 2, platform::Colour::black, window.maximumCheck.caption());
    if (window.meanCheck.checked()) choice.printAt(0, 2, platform::Colour::black, window.meanCheck.caption());
  }
  platform::Surface interval{"Intervallo", 303, 26, 18, platform::Colour::windowBackground};
  platform::Surface trial{"Prova", 303, 26, 18, platform::Colour::windowBackground};
  platform::Surface choice{"Valori", 303, 26, 18, platform::Colour::windowBackground};
};

/// What the report stands for, beside it, and the cover over a report that could not be calculated.
struct Standing {
  explicit Standing(const Workbench& bench)
      : of(guidance::reportStanding(guidance::reportOrigin(bench.shared), bench.report, bench.state)) {
    beside.keepTextsInPlace();
    beside.printAt(0, 0, platform::Colour::black, of.line);
    const std::string& warning = of.missing.empty() ? of.doubtful : of.missing;
    if (!warning.empty()) beside.printAt(0, 3 * beside.lineHeight(), platform::Colour::red, warning);
    cover.keepTextsInPlace();
    if (!of.missing.empty()) cover.printAt(60, 370, platform::Colour::black, of.missing);
  }
  guidance::ReportStanding of;
  platform::Surface beside{"Che cosa riguarda", 303, 106, 18, platform::Colour::windowBackground};
  platform::Surface cover{"Perché è coperto", 854, 763, 22, platform::Colour::lightGrey};
};

/// Below everything else, so that the rest keeps its place.
void addTrialNotice(platform::Page& page, const platform::Surface& notice, const platform::Rect& last) {
  page.placed.push_back({&notice, {last.x, last.bottom() + 2, last.width, last.height}});
  page.height += last.height;
}

bool isOfTrial(const std::string& recording) {
  return guidance::isOfTrial(utf8Of(std::filesystem::absolute(pathOf(recording))));
}

platform::Page pageOf(const Workbench& bench, const Labels& labels, const Standing& standing, bool trial) {
  const ReportWindow& window = bench.reportWindow;
  const auto& places = report_geometry::panels;
  const auto& last = report_geometry::intervalLabel;
  platform::Page page{"Korvinel - " + bench.shared.dataFileName, &window.ground, last.bottom() + 6, {}};
  const platform::Surface* panels[] = {&window.spectrum1,  &window.spectrum2,  &window.spectrum3,  &window.spectrum4,
                                       &window.coherence1, &window.coherence2, &window.coherence3, &window.coherence4};
  for (std::size_t i = 0; i < places.size(); ++i) page.placed.push_back({panels[i], places[i]});
  page.placed.push_back({&labels.interval, last});
  page.placed.push_back({&labels.choice, {last.x, last.y - last.height, last.width, last.height}});
  page.placed.push_back({&standing.beside, {last.x, 510, last.width, 106}});
  const Rect& first = places.front();
  const Rect& end = places.back();
  if (!standing.of.missing.empty())
    page.placed.push_back({&standing.cover, {first.x, first.y, end.right() - first.x, end.bottom() - first.y}});
  if (trial) addTrialNotice(page, labels.trial, last);
  return page;
}

std::string whyNotDrawn(const platform::PageFault& fault) {
  switch (fault.failure) {
    case platform::PageFailure::noFont: return "no font is installed";
    case platform::PageFailure::notBegun: return "the page cannot be begun";
    case platform::PageFailure::notFinished: return "the page cannot be finished";
    case platform::PageFailure::notEncoded: return std::string("the picture cannot be made: ") + fault.what();
  }
  return "";
}

}  // namespace

void requirePageEnding(const std::string& output) {
  if (!formatOf(output)) throw UsageError(output + ": a report is a .pdf, .png or .svg file");
}

void writeReport(const Workbench& bench, const std::string& recording, const std::string& output, bool force) {
  requirePageEnding(output);
  requireWritable(output, recording, force);
  const Labels labels(bench.reportWindow);
  const Standing standing(bench);
  try {
    const platform::Page page = pageOf(bench, labels, standing, isOfTrial(recording));
    writeWhole(output, platform::pageBytes(page, *formatOf(output)), force);
  } catch (const platform::PageFault& fault) {
    throw ToolError(output, "cannot be drawn: " + whyNotDrawn(fault));
  }
  if (bench.reportFault) tell(recording, "the report ends early: " + reportError(bench));
}

}  // namespace korvinel::tool
