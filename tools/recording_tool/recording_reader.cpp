#include "recording_tool/recording_reader.h"

#include <cmath>
#include <limits>

#include "eeg/block.h"
#include "eeg/montage.h"
#include "recording/channel_record.h"
#include "recording_tool/fault_text.h"
#include "recording_tool/host_files.h"
#include "recording_tool/tool_error.h"

namespace korvinel::tool {
namespace {

constexpr int channels = eeg::channelCount;

template <typename Act>
void forEachSample(Block& block, Act&& act) {
  for (int channel = 1; channel <= channels; ++channel)
    for (int s = 1; s <= samplesPerRecord; ++s) act(block[channel][s]);
}

}  // namespace

RecordingReader::RecordingReader(const std::string& path) : path_(path), file_(openInput(path)) {
  try {
    header_ = readHeader(*file_);
  } catch (const RuntimeError&) {
    throw ToolError(path,
                    "the header and its notes cannot be read up to here, at byte " + std::to_string(file_->position()));
  }
  if (header_.versionTag != "V3" && header_.versionTag != "V4")
    throw ToolError(path, "the version '" + header_.versionTag + "' is not known: no sample can be read, at byte 0");
}

bool RecordingReader::next(Block& block) {
  constexpr float middle = eeg::midLevel;
  try {
    if (file_->atEnd()) return false;
    // Samples that are still NaN have not been read.
    forEachSample(block, [](float& sample) { sample = std::numeric_limits<float>::quiet_NaN(); });
    if (header_.versionTag == "V3")
      readByteBlock(*file_, channels, block);
    else
      readNumberBlock(*file_, channels, block);
  } catch (const RuntimeError& fault) {
    throw ToolError(path_, "cannot be read: " + reasonOf(fault) + ", at byte " + std::to_string(file_->position()));
  }
  forEachSample(block, [this](float& sample) {
    if (!std::isnan(sample)) return;
    sample = middle;
    ++missingSamples_;
  });
  return true;
}

}  // namespace korvinel::tool
