#include "recording_tool/program/command_line.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>
#include <thread>
#include <utility>

#include "recording_tool/analyse_command.h"
#include "recording_tool/analysis_output.h"
#include "recording_tool/batch.h"
#include "recording_tool/channel_choice.h"
#include "recording_tool/edf_import.h"
#include "recording_tool/export_options.h"
#include "recording_tool/fault_text.h"
#include "recording_tool/info_commands.h"
#include "recording_tool/messages.h"
#include "recording_tool/program/report_command.h"
#include "recording_tool/recovery.h"
#include "recording_tool/safe_output.h"
#include "recording_tool/tool_error.h"

namespace korvinel::tool {
namespace {

/// The parsed command line. One subcommand fills its part.
struct Written {
  std::vector<std::string> files;
  std::string file, output, notes, factors, channels = "F1,F2,T5,T6";
  bool json = false, force = false;
  AnalyseTargets targets;
  AnalysisOptions analysis;
  ExportOptions exporting;
  ImportOptions importing;
  BatchOptions batch;
  int exitCode = done;
};

void addFile(CLI::App& command, Written& written, const char* name, const char* what) {
  command.add_option(name, written.file, what)->required()->type_name("");
}

void addOutput(CLI::App& command, Written& written, const char* what) {
  command.add_option("-o,--output", written.output, what)->required()->type_name("FILE");
  command.add_flag("--force", written.force, "replace an existing output");
}

void addFiles(CLI::App& command, Written& written, const char* name, const char* what) {
  command.add_option(name, written.files, what)->required()->type_name("");
}

void addAnalysis(CLI::App& command, Written& written) {
  command.add_option("--first", written.analysis.first, "first block of the report's interval (default: the first)")
      ->type_name("B");
  command.add_option("--last", written.analysis.last, "last block of the interval (default: the last one counted)")
      ->type_name("B");
  command.add_flag("--ocular", written.analysis.ocular, "remove ocular artefacts first");
  command.add_option("--factors", written.factors, "calibration file (default: Factors.val of the installation)")
      ->type_name("FILE");
}

AnalysisOptions analysisOf(const Written& written) {
  AnalysisOptions options = written.analysis;
  if (options.first && options.last && *options.first > *options.last)
    throw UsageError("--first " + std::to_string(*options.first) + " lies behind --last " +
                     std::to_string(*options.last));
  takeCalibration(options, written.factors);
  return options;
}

template <typename Run>
CLI::App& addCommand(CLI::App& program, Written& written, const char* name, const char* what, const char* example,
                     Run run) {
  CLI::App& command = *program.add_subcommand(name, what);
  command.footer(std::string("Example:\n  korvinel-recording ") + example);
  command.callback([&written, run] { run(written); });
  return command;
}

void addInfo(CLI::App& program, Written& written) {
  CLI::App& command =
      addCommand(program, written, "info", "Show header, notes, version, blocks, duration and damage", "info esame.QVD",
                 [](Written& w) { w.exitCode = showInfo(w.files, w.json, std::cout); });
  addFiles(command, written, "FILE", "recordings");
  command.add_flag("--json", written.json, "as a JSON array");
}

void addCheck(CLI::App& program, Written& written) {
  CLI::App& command =
      addCommand(program, written, "check", "Tell whether recordings are whole: a line for each defect, exit code 1",
                 "check shelf/*.QVD", [](Written& w) { w.exitCode = checkFiles(w.files, std::cout); });
  addFiles(command, written, "FILE", "recordings");
}

void addRecover(CLI::App& program, Written& written) {
  CLI::App& command =
      addCommand(program, written, "recover", "Make a recording from the temporary file of a crashed program",
                 "recover Tempor1.XXX -o esame.QVD", [](Written& w) {
                   for (const std::string& line : recover(w.file, w.notes, w.output, w.force)) tell(w.output, line);
                 });
  addFile(command, written, "TEMPFILE", "the temporary file");
  command.add_option("--notes", written.notes, "file with its names and notes (default: TEMPFILE's name with .NOT)")
      ->type_name("FILE");
  addOutput(command, written, "the recording");
}

void addAnalyse(CLI::App& program, Written& written) {
  CLI::App& command = addCommand(program, written, "analyse", "Calculate every history and every number of the report",
                                 "analyse esame.QVD --json esame.json", [](Written& w) {
                                   w.targets.force = w.force;
                                   analyse(w.file, analysisOf(w), w.targets);
                                 });
  addFile(command, written, "FILE", "a recording");
  command.add_option("--json", written.targets.json, "write JSON; - is standard output")->type_name("OUT");
  command.add_option("--csv", written.targets.csvFolder, "write tables into this folder")->type_name("DIR");
  command.add_flag("--force", written.force, "replace existing outputs");
  addAnalysis(command, written);
}

void addReport(CLI::App& program, Written& written) {
  CLI::App& command =
      addCommand(program, written, "report", "Write the report's page: a PDF, PNG or SVG file",
                 "report esame.QVD -o esame.pdf", [](Written& w) { report(w.file, analysisOf(w), w.output, w.force); });
  addFile(command, written, "FILE", "a recording");
  addOutput(command, written, "the page: .pdf, .png or .svg");
  addAnalysis(command, written);
  auto* maxima =
      command.add_flag("--max", written.analysis.maxima, "write the maxima of the bands into the panels (default)");
  command.add_flag("--mean", written.analysis.means, "write the means of the bands into the panels")->excludes(maxima);
  command.add_option("--scale", written.analysis.microvolts, "full scale of the spectra in microvolts (default 30)")
      ->type_name("N")
      ->check(CLI::Range(1, 200));
}

void addExport(CLI::App& program, Written& written) {
  CLI::App& command = addCommand(program, written, "export", "Write a recording as EDF+ or as a table",
                                 "export esame.QVD -o esame.edf", [](Written& w) {
                                   w.exporting.force = w.force;
                                   exportRecording(w.file, w.output, w.exporting);
                                 });
  addFile(command, written, "FILE", "a recording");
  addOutput(command, written, "the export: .edf or .csv");
  command.add_flag("--anonymous", written.exporting.anonymous, "leave the person out");
}

void addImport(CLI::App& program, Written& written) {
  CLI::App& command = addCommand(program, written, "import", "Make a recording of four channels of an EDF or BDF file",
                                 "import night.edf --channels F3,F4,T5,T6 -o night.QVD", [](Written& w) {
                                   w.importing.channels = parseChannels(w.channels);
                                   w.importing.force = w.force;
                                   importEdf(w.file, w.output, w.importing);
                                 });
  addFile(command, written, "FILE", "an EDF, EDF+, BDF or BDF+ file");
  addOutput(command, written, "the recording");
  command.add_option("--channels", written.channels, "labels or numbers of the signals for F1, F2, T5 and T6")
      ->type_name("A,B,C,D")
      ->capture_default_str();
  command.add_option("--subject", written.importing.subject, "the subject's name (default: the file's own)")
      ->type_name("NAME");
}

void addBatch(CLI::App& program, Written& written) {
  written.batch.jobs = std::max(1, static_cast<int>(std::thread::hardware_concurrency()));
  CLI::App& command = addCommand(program, written, "batch", "Analyse many recordings into one table, a row each",
                                 "batch shelf -o shelf.csv --jobs 4", [](Written& w) {
                                   w.batch.analysis = analysisOf(w);
                                   w.batch.output = w.output;
                                   w.batch.force = w.force;
                                   w.exitCode = runBatch(recordingsIn(w.files), w.batch);
                                 });
  addFiles(command, written, "DIR", "folders to search for .QVD files, or recordings");
  addOutput(command, written, "the table (CSV)");
  command.add_option("--jobs", written.batch.jobs, "recordings analysed at a time")
      ->type_name("N")
      ->check(CLI::Range(1, 1024))
      ->capture_default_str();
  command.add_flag("--resume", written.batch.resume, "continue an interrupted run");
  addAnalysis(command, written);
}

void build(CLI::App& program, Written& written) {
  program.allow_windows_style_options(false);  // a path may begin with "/" on any system
  program.require_subcommand(1);
  program.set_version_flag("--version", KORVINEL_VERSION);
  addInfo(program, written);
  addCheck(program, written);
  addRecover(program, written);
  addAnalyse(program, written);
  addReport(program, written);
  addExport(program, written);
  addImport(program, written);
  addBatch(program, written);
  program.footer(
      "Exit code: 0 done, 1 a file cannot be read or written or is damaged, 2 the command line is not understood.\n"
      "'korvinel-recording COMMAND --help' shows a command's options.");
}

int refuse(const std::string& what) {
  std::cerr << "korvinel-recording: " << what << "\nTry 'korvinel-recording --help'.\n";
  return notUnderstood;
}

}  // namespace

int runProgram(std::vector<std::string> words) {
  CLI::App program{"Works on Korvinel's recordings (.QVD) without a window.", "korvinel-recording"};
  Written written;
  build(program, written);
  try {
    std::reverse(words.begin(), words.end());  // the order the parser expects
    program.parse(std::move(words));
    std::cout.flush();
    if (!std::cout) throw ToolError("standard output", "cannot be written");
    return written.exitCode;
  } catch (const CLI::ParseError& error) {
    if (error.get_exit_code() == 0) return program.exit(error);
    return refuse(error.what());
  } catch (const UsageError& error) {
    return refuse(error.what());
  } catch (const ToolError& error) {
    tellError(error);
  } catch (const std::exception& error) {
    std::cerr << "korvinel-recording: " << faultText(error) << '\n';
  }
  return failed;
}

}  // namespace korvinel::tool
