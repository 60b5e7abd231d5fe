#include "input.h"
#include "recording/channel_record.h"

using namespace korvinel;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  TextSource source = fuzz::sourceOf(data, size);
  Bounded<float, 4, 258> block;
  while (source.peek() != ByteSource::end) readByteBlock(source, 4, block);
  for (int channel = 1; channel <= 4; ++channel) {
    const std::string record = takeChannelRecord(block[channel]);
    fuzz::require(record.size() == channelRecordBytes);
    for (int s = 0; s < samplesPerRecord; ++s) {
      const auto byte = static_cast<unsigned char>(record[static_cast<std::size_t>(s)]);
      fuzz::require(byte != 0 && byte != 9 && byte != 10 && byte != 26);
    }
  }
  return 0;
}
