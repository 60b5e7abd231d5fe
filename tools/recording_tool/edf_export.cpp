#include "recording_tool/edf_export.h"

#include <edflib.h>

#include <array>
#include <cmath>
#include <regex>

#include "eeg/block.h"
#include "recording/channel_record.h"
#include "recording_tool/ascii_form.h"
#include "recording_tool/edf_check.h"
#include "recording_tool/messages.h"
#include "recording_tool/recording_reader.h"
#include "recording_tool/safe_output.h"
#include "recording_tool/tool_error.h"

namespace korvinel::tool {
namespace {

constexpr std::size_t longestName = 60;

EdfDate dateOf(const std::string& recording, const std::string& date) {
  static const std::regex form(R"(\s*(\d\d)/(\d\d)/(\d{4})\s*)");
  std::smatch part;
  if (std::regex_match(date, part, form)) {
    const EdfDate found{std::stoi(part[3]), std::stoi(part[2]), std::stoi(part[1])};
    if (found.year >= 1985 && found.year <= 2084 && found.month >= 1 && found.month <= 12 && found.day >= 1 &&
        found.day <= 31)
      return found;
  }
  tell(recording, "the date '" + date + "' is none that EDF can hold, written as 1985-01-01");
  return {1985, 1, 1};
}

EdfPlan planFor(const std::string& recording, bool anonymous) {
  RecordingReader reader(recording);
  EdfPlan plan;
  Block block;
  while (reader.next(block)) ++plan.blocks;
  if (plan.blocks == 0) throw ToolError(recording, "holds no samples");
  if (reader.missingSamples() > 0)
    tell(recording, std::to_string(reader.missingSamples()) + " samples are missing, written as 0 microvolts");
  plan.person = anonymous ? "" : trimmed(asciiForm(reader.header().subject).substr(0, longestName));
  plan.date = dateOf(recording, reader.header().date);
  plan.annotations = annotationsOf(reader.header(), plan.blocks);
  return plan;
}

/// Checks the result of a library setting, which never fails for values allowed by the format.
void set(const std::string& output, int result) {
  if (result != 0) throw ToolError(output, "cannot be written: the EDF library refuses a header field");
}

void describeSignals(int file, const std::string& output) {
  constexpr std::array<const char*, 4> labels = {"EEG F1", "EEG F2", "EEG T5", "EEG T6"};
  for (int signal = 0; signal < 4; ++signal) {
    set(output, edf_set_samplefrequency(file, signal, samplesPerRecord));
    set(output, edf_set_digital_minimum(file, signal, leastDigital));
    set(output, edf_set_digital_maximum(file, signal, greatestDigital));
    set(output, edf_set_physical_minimum(file, signal, leastDigital));
    set(output, edf_set_physical_maximum(file, signal, greatestDigital));
    set(output, edf_set_physical_dimension(file, signal, "uV"));
    set(output, edf_set_label(file, signal, labels[static_cast<std::size_t>(signal)]));
    set(output, edf_set_transducer(file, signal, "scalp electrode"));
    set(output, edf_set_prefilter(file, signal, "smoothed 0.3-1-0.3, baseline removed"));
  }
}

void describeFile(int file, const std::string& output, const EdfPlan& plan) {
  describeSignals(file, output);
  constexpr int tenMicroseconds = 100'000;  // in a second
  set(output, edf_set_datarecord_duration(file, eeg::signalSecondsPerBlock * tenMicroseconds));
  set(output, edf_set_startdatetime(file, plan.date.year, plan.date.month, plan.date.day, 0, 0, 0));
  if (!plan.person.empty()) set(output, edf_set_patientname(file, plan.person.c_str()));
  set(output, edf_set_equipment(file, "Korvinel"));
  set(output, edf_set_number_of_annotation_signals(file, plan.annotationSignals()));
}

void writeSamples(int file, const std::string& recording, const std::string& output) {
  RecordingReader reader(recording);
  Block block;
  int limited = 0;
  while (reader.next(block))
    for (int channel = 1; channel <= 4; ++channel) {
      auto samples = digitalSamples(block[channel], limited);
      if (edfwrite_digital_short_samples(file, samples.data()) != 0) throw ToolError(output, "cannot be written");
    }
  if (limited > 0) tell(recording, std::to_string(limited) + " samples beyond -128..127 microvolts are limited");
}

void writeAnnotations(int file, const std::string& output, const EdfPlan& plan) {
  constexpr double unitsPerSecond = 10'000;
  for (const Annotation& annotation : plan.annotations) {
    const auto onset = static_cast<long long>(std::llround(annotation.onset * unitsPerSecond));
    set(output, edfwrite_annotation_utf8(file, onset, -1, annotation.text.c_str()));
  }
}

void writeEdf(const std::string& recording, SafeOutput& output, const EdfPlan& plan) {
  output.handOver();
  const int file = edfopen_file_writeonly(output.temporaryPath().c_str(), EDFLIB_FILETYPE_EDFPLUS, 4);
  if (file < 0) throw ToolError(output.path(), "cannot be written");
  try {
    describeFile(file, output.path(), plan);
    writeSamples(file, recording, output.path());
    writeAnnotations(file, output.path(), plan);
  } catch (...) {
    edfclose_file(file);
    throw;
  }
  if (edfclose_file(file) != 0) throw ToolError(output.path(), "cannot be written");
}

}  // namespace

void exportEdf(const std::string& recording, const std::string& output, const ExportOptions& options) {
  requireWritable(output, recording, options.force);
  const EdfPlan plan = planFor(recording, options.anonymous);
  SafeOutput file(output, options.force);
  writeEdf(recording, file, plan);
  // The library reports success on a full disk.
  checkEdf(recording, file, plan);
  file.commit();
}

}  // namespace korvinel::tool
