#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "frame/main_state.h"
#include "frame/main_window.h"
#include "frame/program_values.h"
#include "platform/headless/headless_platform.h"
#include "report/report_state.h"
#include "report/report_window.h"
#include "values/runtime_error.h"

namespace korvinel::tool {

/// Files on the disk, but with the program's own root in memory: no installation is touched, and what the program would
/// write there can be read from `root`.
class ToolFiles : public platform::Files {
 public:
  platform::MemoryFiles root;  ///< by full path
  std::string recording;       ///< read from the disk, even if it is in the program's own folder

  [[nodiscard]] std::unique_ptr<platform::InputFile> openForReading(const std::string& path) override {
    return path == recording ? disk_->openForReading(path) : at(path).openForReading(path);
  }
  [[nodiscard]] std::unique_ptr<platform::OutputFile> create(const std::string& path) override {
    return at(path).create(path);
  }
  [[nodiscard]] std::unique_ptr<platform::OutputFile> createNew(const std::string& path) override {
    return at(path).createNew(path);
  }
  [[nodiscard]] std::unique_ptr<platform::OutputFile> openForAppending(const std::string& path) override {
    return at(path).openForAppending(path);
  }
  [[nodiscard]] bool exists(const std::string& path) override { return at(path).exists(path); }
  void remove(const std::string& path) override { at(path).remove(path); }
  void rename(const std::string& from, const std::string& to) override { at(from).rename(from, to); }
  [[nodiscard]] platform::NameFault nameFault(const std::string& folder, const std::string& name) override {
    return at(folder).nameFault(folder, name);
  }
  [[nodiscard]] platform::LockAttempt lock(const std::string& path, const std::string& note) override {
    return at(path).lock(path, note);
  }
  [[nodiscard]] std::vector<std::string> list(const std::string& folder, const std::string& ending) override {
    return at(folder).list(folder, ending);
  }

 private:
  platform::Files& at(const std::string& path);
  std::unique_ptr<platform::Files> disk_ = platform::hostFiles("");
};

/// The user's choices for an analysis.
struct AnalysisOptions {
  std::string factors;                 ///< bytes of the calibration file
  std::string factorsFile;             ///< the file they were read from, "" if none
  bool ocular = false;                 ///< ocular artefacts are removed
  std::optional<int> first, last;      ///< the report's interval; the whole recording if not given
  bool maxima = false, means = false;  ///< the band values written in the report's panels
  std::optional<int> microvolts;       ///< full scale of the report's spectra, 1..200
};

/// Reads the calibration into the options: from the file `path`, or if that is empty from the installation (64 factors
/// of 1 if there is none). ToolError if the file cannot be used.
void takeCalibration(AnalysisOptions& options, const std::string& path);

/// The whole program without a screen, for one recording, operated through its controls like a user would.
class Workbench {
 public:
  explicit Workbench(const AnalysisOptions& options = {});

  /// "Apri File" with this file. ToolError if it is not opened.
  void open(const std::string& path);
  /// "Analisi", with the interval, the band values and the scale of the options, and the comments. UsageError if the
  /// interval is outside the recording. A fault ends the report early and stays in `reportFault`.
  void makeReport();

  [[nodiscard]] int scannedBlocks() const {
    return scannedBlocks_;
  }  ///< blocks read and analysed, one more than counted

 private:
  AnalysisOptions options_;
  platform::HeadlessPlatform host_;
  int scannedBlocks_ = 0;
  std::optional<Facts> fault_;  ///< that ended the last operation

 public:
  ToolFiles files;
  platform::Platform platform;
  MainWindow window;
  ProgramValues shared;
  MainState state{window, shared, platform};
  ReportWindow reportWindow;
  CommentWindow comments;
  ReportState report{reportWindow, comments, shared, platform};
  std::optional<Facts> reportFault;

 private:
  [[nodiscard]] std::string openingReason() const;
  void chooseInterval();
  void loadReport();
};

}  // namespace korvinel::tool
