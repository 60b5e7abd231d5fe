#include <cmath>

#include "input.h"
#include "recording/channel_record.h"

using namespace korvinel;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  TextSource source = fuzz::sourceOf(data, size);
  Bounded<float, 4, 258> block;
  for (int blocks = 0; blocks < 199 && source.peek() != ByteSource::end; ++blocks) readNumberBlock(source, 4, block);
  for (int channel = 1; channel <= 4; ++channel)
    for (int s = 1; s <= samplesPerRecord; ++s) fuzz::require(std::isfinite(block[channel][s]));
  return 0;
}
