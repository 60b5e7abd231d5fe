#include "recording/channel_record.h"

#include <cmath>

#include "platform/skip_on_fault.h"
#include "values/field_reader.h"

namespace korvinel {

float storedSample(float sample) {
  double stored = std::floor(static_cast<double>(sample) + 0.5);
  if (!(stored >= 1)) stored = 1;
  if (stored > 255) stored = 255;
  // Bytes that a text reader would interpret as a tab, a line feed or the end of the file.
  if (stored == 9) stored = 8;
  if (stored == 10) stored = 11;
  if (stored == 26) stored = 27;
  return static_cast<float>(stored);
}

std::string takeChannelRecord(Bounded<float, 258>& samples) {
  std::string record;
  record.reserve(channelRecordBytes);
  for (int s = 1; s <= samplesPerRecord; ++s) {
    samples[s] = storedSample(samples[s]);
    record += static_cast<char>(static_cast<unsigned char>(samples[s]));
  }
  return record + "-\r\n";
}

void readByteBlock(ByteSource& source, int channels, Bounded<float, 4, 258>& block) {
  for (int channel = 1; channel <= channels; ++channel) {
    for (int s = 1; s <= samplesPerRecord; ++s) {
      const int byte = source.take();
      if (byte == ByteSource::end) return;
      block[channel][s] = static_cast<float>(byte);
    }
    for (int i = 0; i < recordTailBytes; ++i) source.take();
  }
}

void readNumberBlock(ByteSource& source, int channels, Bounded<float, 4, 258>& block) {
  for (int channel = 1; channel <= channels; ++channel)
    for (int s = 1; s <= samplesPerRecord; ++s) {
      if (source.peek() == ByteSource::end) return;
      platform::skipOnFault([&] { block[channel][s] = readFloat(source); });
    }
}

}  // namespace korvinel
