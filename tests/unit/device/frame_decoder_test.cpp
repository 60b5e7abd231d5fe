#include "device/frame_decoder.h"

#include <gtest/gtest.h>

#include <array>
#include <stdexcept>
#include <string>

namespace korvinel {
namespace {

using Block = Bounded<float, 4, 258>;

/// Frames whose byte k (from 0) is 7 k, modulo 256.
std::string bytesOf(int count) {
  std::string bytes;
  for (int k = 0; k < count; ++k) bytes += static_cast<char>(7 * k);
  return bytes;
}

TEST(FrameDecoder, ByteKIsSampleKOverFourOfTheChannelInTurn) {
  Block block;
  EXPECT_EQ(decodeFrames(bytesOf(1024), instrumentStream, block), 1024);
  for (int sample = 1; sample <= 256; ++sample)
    for (int channel = 1; channel <= 4; ++channel)
      EXPECT_EQ(block[channel][sample], static_cast<float>(7 * (4 * (sample - 1) + channel - 1) % 256));
}

TEST(FrameDecoder, LooksAtNothingBehindTheBlockAndTouchesNoEdge) {
  Block block;
  for (int channel = 0; channel <= 4; ++channel) block[channel][0] = block[channel][257] = 5;
  EXPECT_EQ(decodeFrames(bytesOf(1030), instrumentStream, block), 1024);
  for (int channel = 0; channel <= 4; ++channel) {
    EXPECT_EQ(block[channel][0], 5);
    EXPECT_EQ(block[channel][257], 5);
  }
  EXPECT_EQ(block[0][1], 0);
}

TEST(FrameDecoder, ABlockThatIsNotWholeIsAFault) {
  Block block;
  EXPECT_THROW(decodeFrames(bytesOf(1023), instrumentStream, block), std::out_of_range);
}

TEST(FrameDecoder, TheFormatSaysHowSamplesAreCoded) {
  constexpr StreamFormat wide{4, 16, 32768, 256};
  static_assert(wide.bytesPerFrame() == 8 && wide.bytesPerBlock() == 2048 && wide.blockTimeout() == 2.0);
  std::string bytes;
  for (int sample = 0; sample < 1024; ++sample) bytes += std::string("\x02\x80", 2);
  Block block;
  EXPECT_EQ(decodeFrames(bytes, wide, block), 2048);
  EXPECT_EQ(block[4][256], 130);
}

TEST(FrameDecoder, TheSizesOfAStreamFollowFromItsFormat) {
  const StreamFormat formats[] = {{4, 16, 32768, 256}, {3, 24, 0, 64}};
  const std::array<int, 4> sizes[] = {{2, 8, 2048, 3200}, {3, 9, 2304, 3600}};
  const double timeouts[] = {2.0, 8.0};
  for (std::size_t i = 0; i < 2; ++i) {
    const StreamFormat& format = formats[i];
    const std::array found{format.bytesPerSample(), format.bytesPerFrame(), format.bytesPerBlock(),
                           format.receiveBufferBytes()};
    EXPECT_EQ(found, sizes[i]);
    EXPECT_EQ(format.blockTimeout(), timeouts[i]);
  }
}

}  // namespace
}  // namespace korvinel
