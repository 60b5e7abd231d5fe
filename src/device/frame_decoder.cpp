#include "device/frame_decoder.h"

#include <cstddef>

namespace korvinel {
namespace {

int codeAt(std::string_view bytes, int position, const StreamFormat& format) {
  int code = 0;
  for (int byte = format.bytesPerSample() - 1; byte >= 0; --byte)
    code = 256 * code + static_cast<unsigned char>(bytes.at(static_cast<std::size_t>(position + byte)));
  return code;
}

}  // namespace

int decodeFrames(std::string_view bytes, const StreamFormat& format, Bounded<float, 4, 258>& block) {
  int position = 0;
  for (int sample = 1; sample <= eeg::samplesPerBlock; ++sample)
    for (int channel = 1; channel <= format.channels; ++channel) {
      block[channel][sample] = static_cast<float>(codeAt(bytes, position, format) - format.zeroLevel + eeg::midLevel);
      position += format.bytesPerSample();
    }
  return position;
}

}  // namespace korvinel
