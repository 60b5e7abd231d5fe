#pragma once

#include <string>

#include "eeg/block.h"
#include "eeg/montage.h"
#include "values/bounded.h"
#include "values/field_reader.h"

namespace korvinel {

/// A block in a file of version V3: four channel records, channel 1 to 4, each of 256 sample bytes in time order, "-"
/// and CR LF. Sample bytes are 1..255 and never 9, 10 or 26.
constexpr int samplesPerRecord = eeg::samplesPerBlock;
constexpr int recordTailBytes = 3;
constexpr int channelRecordBytes = samplesPerRecord + recordTailBytes;
constexpr int blockBytes = eeg::channelCount * channelRecordBytes;

/// The whole number 1..255 as which a sample is stored: rounded (halves up), limited, and moved off the three shunned
/// bytes. No number (NaN) is stored as 1.
[[nodiscard]] float storedSample(float sample);

/// Rounds samples 1..256 of one channel as storedSample does, in place, and gives the channel record.
[[nodiscard]] std::string takeChannelRecord(Bounded<float, 258>& samples);

/// Reads the next block of a version V3 file: channel 1..`channels` x 256 bytes, three bytes skipped behind each
/// channel, whatever they are. Where the source ends, the samples not reached keep their values.
void readByteBlock(ByteSource& source, int channels, Bounded<float, 4, 258>& block);

/// Reads the next block of a version V4 file: channel 1..`channels` x 256 numeric fields. A field that is no number, or
/// none that a 32-bit float holds, leaves its sample's value; where the source ends, reading ends.
void readNumberBlock(ByteSource& source, int channels, Bounded<float, 4, 258>& block);

}  // namespace korvinel
