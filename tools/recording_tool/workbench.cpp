#include "recording_tool/workbench.h"

#include <ctime>
#include <filesystem>

#include "frame/configuration.h"
#include "platform/companion_windows.h"
#include "platform/disk/installation.h"
#include "platform/host_paths.h"
#include "platform/skip_on_fault.h"
#include "recording_tool/fault_text.h"
#include "recording_tool/host_files.h"
#include "recording_tool/tool_error.h"
#include "values/field_reader.h"
#include "wiring/main_wiring.h"
#include "wiring/report_wiring.h"

namespace korvinel::tool {
namespace {

constexpr auto programRoot = "C:\\QUARVEL5";
constexpr auto settingsPath = "C:\\QUARVEL5\\Instal8s.val";
constexpr auto calibrationPath = "C:\\QUARVEL5\\Factors.val";

/// The day on which the tool was started, read once: std::localtime is not thread-safe.
const platform::CalendarTime& today() {
  static const platform::CalendarTime day = [] {
    const std::time_t now = std::time(nullptr);
    const std::tm* local = std::localtime(&now);
    return platform::CalendarTime{local->tm_year + 1900, local->tm_mon + 1, local->tm_mday, 0, 0, 0};
  }();
  return day;
}

void requireFactors(const std::string& path, const std::string& bytes) {
  TextSource source(bytes);
  Bounded<float, 130> factors;
  try {
    readCalibration(source, factors);
  } catch (const RuntimeError& fault) {
    throw ToolError(path, "is no calibration file: " + reasonOf(fault));
  }
}

/// "" if there is no installation, as for a user without a home.
std::string installedCalibration() {
  std::string dataFolder;
  if (!platform::skipOnFault([&] { dataFolder = platform::userDataFolder(); })) return "";
  const bool installed = std::filesystem::exists(platform::hostPath(dataFolder, programRoot));
  return installed ? platform::hostPath(dataFolder, calibrationPath) : "";
}

}  // namespace

platform::Files& ToolFiles::at(const std::string& path) {
  if (path.starts_with(programRoot)) return root;
  return *disk_;
}

void takeCalibration(AnalysisOptions& options, const std::string& path) {
  options.factors = platform::defaultFactors();
  options.factorsFile = path.empty() ? installedCalibration() : path;
  if (options.factorsFile.empty()) return;
  constexpr int most = 1'000'000;
  options.factors = readAll(options.factorsFile, most);
  requireFactors(options.factorsFile, options.factors);
}

Workbench::Workbench(const AnalysisOptions& options)
    : options_(options), platform{host_.time, host_.time,       host_.tickTimer, host_.pauseTimer, host_.dialogs,
                                  files,      host_.serialPort, host_.machine,   host_.printer,    host_.windows} {
  files.root.content[settingsPath] = platform::defaultSettings();
  files.root.content[calibrationPath] = options.factors.empty() ? platform::defaultFactors() : options.factors;
  host_.time.setDate(today());
  host_.edge.onFault = [this](const std::exception& fault) { fault_ = factsOf(fault); };
  tieControls(state, host_.edge);
  tieReport(report, host_.edge);
  host_.windows.onReport = [this] { loadReport(); };
  window.blockLabel.onChanged = [this] {
    if (state.fileLoopRunning == 1) scannedBlocks_ = state.blockCount;
  };
  state.startUp();
  window.ocularCheck.setChecked(options.ocular);
}

void Workbench::open(const std::string& path) {
  (void)openInput(path);
  files.recording = absolutePath(path);
  host_.dialogs.files.push_back(files.recording);
  fault_.reset();
  window.Openx.press();
  if (state.intervalSelectable != 1 || state.openingFault)
    throw ToolError(path, "cannot be opened: " + openingReason());
  if (state.fileVersionTag != "V3" && state.fileVersionTag != "V4")
    throw ToolError(path, "holds no samples that can be read: its version is '" + state.fileVersionTag + "'");
}

std::string Workbench::openingReason() const {
  if (state.openingFault) return reasonOf(*state.openingFault);
  return fault_ ? reasonOf(*fault_) : "unknown reason";
}

void Workbench::chooseInterval() {
  const int blocks = shared.fileBlockCount;
  const auto choose = [&](const char* option, const std::optional<int>& block, Int16& field) {
    if (!block) return;
    if (*block < 1 || *block > blocks)
      throw UsageError(std::string(option) + " " + std::to_string(*block) + " is outside the recording, which counts " +
                       std::to_string(blocks) + " blocks");
    field = *block;
  };
  choose("--first", options_.first, shared.analysisFirstBlock);
  choose("--last", options_.last, shared.analysisLastBlock);
}

void Workbench::makeReport() {
  chooseInterval();
  window.Analisi.press();
  if (options_.maxima) reportWindow.maximumCheck.click();
  if (options_.means) reportWindow.meanCheck.click();
  if (options_.microvolts) reportWindow.scaleSlider.moveTo(*options_.microvolts);
  if (!reportFault) reportWindow.commentButton.press();
}

void Workbench::loadReport() {
  try {
    report.loadReport();
  } catch (const RuntimeError& fault) {
    reportFault = fault.facts();
  }
}

}  // namespace korvinel::tool
