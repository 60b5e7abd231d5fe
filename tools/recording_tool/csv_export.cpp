#include "recording_tool/csv_export.h"

#include "eeg/block.h"
#include "recording/channel_record.h"
#include "recording_tool/csv_text.h"
#include "recording_tool/edf_annotations.h"
#include "recording_tool/messages.h"
#include "recording_tool/recording_reader.h"
#include "recording_tool/safe_output.h"
#include "recording_tool/tool_error.h"

namespace korvinel::tool {
namespace {

/// The notes begun in a block, joined.
std::string notesOf(const FileHeader& header, int block) {
  std::string all;
  for (int note = 1; note <= header.noteCount; ++note) {
    const bool placeholder = header.noteTimes[note] == 1 && header.noteTexts[note] == "Nota: ";
    if (placeholder || header.noteTimes[note] != static_cast<float>(block)) continue;
    all += (all.empty() ? "" : "; ") + header.noteTexts[note];
  }
  return all;
}

std::string linesOf(const Block& samples, int block, const std::string& notes) {
  constexpr float middle = eeg::midLevel;
  constexpr double samplesPerSecond = eeg::samplesPerSecond;
  std::string lines;
  for (int s = 1; s <= samplesPerRecord; ++s) {
    CsvLine line;
    line.add(block).add((block - 1) * eeg::secondsPerBlock + (s - 1) / samplesPerSecond);
    for (int channel = 1; channel <= 4; ++channel) line.add(samples[channel][s] - middle);
    lines += line.add(s == 1 ? notes : "").ended();
  }
  return lines;
}

}  // namespace

void exportCsv(const std::string& recording, const std::string& output, const ExportOptions& options) {
  requireWritable(output, recording, options.force);
  RecordingReader reader(recording);
  SafeOutput file(output, options.force);
  file.write("block,seconds,F1,F2,T5,T6,note\n");
  Block samples;
  int block = 0;
  while (reader.next(samples)) {
    ++block;
    file.write(linesOf(samples, block, notesOf(reader.header(), block)));
  }
  if (block == 0) throw ToolError(recording, "holds no samples");
  if (reader.missingSamples() > 0)
    tell(recording, std::to_string(reader.missingSamples()) + " samples are missing, written as 0 microvolts");
  file.commit();
}

}  // namespace korvinel::tool
