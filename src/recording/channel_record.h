#pragma once

#include <string>

#include "eeg/block.h"
#include "eeg/montage.h"
#include "values/bounded.h"

namespace korvinel {

struct ByteSource;

/// A block in a file of version V3: four channel records, channel 1 to 4, each of 256 sample bytes in time order, "-"
/// and CR LF. Sample bytes are 1..255 and never 9, 10 or 26.
constexpr int samplesPerRecord = eeg::samplesPerBlock;
constexpr int recordTailBytes = 3;
constexpr int channelRecordBytes = samplesPerRecord + recordTailBytes;
constexpr int blockBytes = eeg::channelCount * channelRecordBytes;

/// The whole number 1..255 that is stored for a sample: rounded (halves up), limited, and moved off the three excluded
/// bytes. NaN is stored as 1.
[[nodiscard]] float storedSample(float sample);

/// Rounds samples 1..256 of one channel as storedSample does, in place, and returns the channel record.
[[nodiscard]] std::string takeChannelRecord(Bounded<float, 258>& samples);

/// Reads the next block of a version V3 file: channel 1..`channels` x 256 bytes, skipping three bytes after each
/// channel, whatever they are. If the source ends early, the remaining samples keep their values.
void readByteBlock(ByteSource& source, int channels, Bounded<float, 4, 258>& block);

/// Reads the next block of a version V4 file: channel 1..`channels` x 256 numeric fields. A field that is not a number,
/// or not one that a 32-bit float can hold, leaves its sample unchanged; reading stops at the end of the source.
void readNumberBlock(ByteSource& source, int channels, Bounded<float, 4, 258>& block);

}  // namespace korvinel
