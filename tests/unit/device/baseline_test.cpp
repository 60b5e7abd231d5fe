#include "device/baseline.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <cstring>
#include <limits>
#include <random>
#include <vector>

namespace korvinel {
namespace {

using Signal = std::vector<float>;  ///< indexes 0..sampleCount + 1

/// Compares bit by bit: a NaN equals itself, and 0 is not -0.
void expectSameBits(std::array<Signal, 4> signals) {
  const int count = static_cast<int>(signals[0].size()) - 2;
  auto expected = signals;
  for (Signal& signal : expected) smoothToBaseline(signal.data(), count);
  smoothChannelsToBaseline({signals[0].data(), signals[1].data(), signals[2].data(), signals[3].data()}, count);
  for (std::size_t c = 0; c < 4; ++c)
    ASSERT_EQ(std::memcmp(signals[c].data(), expected[c].data(), signals[c].size() * sizeof(float)), 0) << c;
}

template <typename Sample>
std::array<Signal, 4> signalsOf(std::size_t count, Sample&& sample) {
  std::array<Signal, 4> signals;
  for (Signal& signal : signals) {
    signal.resize(count + 2);
    for (float& value : signal) value = sample();
  }
  return signals;
}

TEST(Baseline, OfFourChannelsAtOnceIsThatOfEachAlone) {
  std::mt19937 random(1);
  std::uniform_real_distribution<float> samples(0, 255);
  for (int n = 0; n < 20; ++n) expectSameBits(signalsOf(256, [&] { return samples(random); }));
}

TEST(Baseline, OfSampleBytesIsThatOfEachAlone) {
  std::mt19937 random(2);
  for (int n = 0; n < 20; ++n)
    expectSameBits(signalsOf(256, [&] { return static_cast<float>(random() % (n < 10 ? 2 : 256)); }));
}

TEST(Baseline, OfFloatsOfAnySizeIsThatOfEachAlone) {
  // Random bit patterns of all finite floats: also subnormal ones, and huge ones whose sums overflow.
  std::mt19937 random(3);
  for (int n = 0; n < 10; ++n)
    expectSameBits(signalsOf(256, [&] {
      const float number = std::bit_cast<float>(static_cast<std::uint32_t>(random()));
      return number - number == 0 ? number : 0;
    }));
}

TEST(Baseline, OfExtremeBlocksIsThatOfEachAlone) {
  for (const float extreme :
       {0.0F, -0.0F, 128.0F, 255.0F, std::numeric_limits<float>::max(), std::numeric_limits<float>::denorm_min()}) {
    int next = 0;
    expectSameBits(signalsOf(256, [&] { return extreme; }));
    expectSameBits(signalsOf(256, [&] { return next++ % 2 == 0 ? extreme : 0; }));
    expectSameBits(signalsOf(256, [&] { return next++ % 257 == 0 ? extreme : -extreme; }));
  }
}

TEST(Baseline, OfShortSignalsIsThatOfEachAlone) {
  std::mt19937 random(4);
  std::uniform_real_distribution<float> samples(-10, 10);
  for (std::size_t count = 1; count <= 40; ++count) expectSameBits(signalsOf(count, [&] { return samples(random); }));
}

}  // namespace
}  // namespace korvinel
