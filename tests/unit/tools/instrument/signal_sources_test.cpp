#include "instrument/signal_sources.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace korvinel::instrument {
namespace {

struct Moments {
  double mean, deviation;
};

template <typename Next>
Moments momentsOf(Next next) {
  constexpr int count = 200'000;
  double sum = 0, squares = 0;
  for (int turn = 0; turn < count; ++turn) {
    const double value = next();
    sum += value;
    squares += value * value;
  }
  return {sum / count, std::sqrt(squares / count - sum / count * (sum / count))};
}

TEST(Random, FollowsThePublishedSequence) {
  Random random(1234567);  // the first numbers of the recurrence from this state
  EXPECT_EQ(random.next(), 6457827717110365317U);
  EXPECT_EQ(random.next(), 3203168211198807973U);
  EXPECT_EQ(random.next(), 9817491932198370423U);
}

TEST(Random, IsSpreadAsAskedFor) {
  Random random(5);
  const Moments even = momentsOf([&] { return random.between(-1, 3); });
  EXPECT_NEAR(even.mean, 1, 0.02);
  EXPECT_NEAR(even.deviation, 4 / std::sqrt(12), 0.02);
  const Moments normal = momentsOf([&] { return random.normal(); });
  EXPECT_NEAR(normal.mean, 0, 0.02);
  EXPECT_NEAR(normal.deviation, 1, 0.02);
}

TEST(PinkNoise, HasDeviationOne) {
  Random random(1);
  PinkNoise noise;
  EXPECT_NEAR(momentsOf([&] { return noise.next(random); }).deviation, 1, 0.05);
}

TEST(BandNoise, HasDeviationOneWhateverItsBand) {
  for (const double hertz : {0.8, 2.2, 19.0, 40.0}) {
    Random random(1);
    BandNoise noise(hertz, 1 + hertz / 4);
    EXPECT_NEAR(momentsOf([&] { return noise.next(random); }).deviation, 1, 0.06) << hertz;
  }
}

TEST(SlowLevel, HasDeviationAboutOne) {
  Random random(1);
  SlowLevel level;
  EXPECT_NEAR(momentsOf([&] { return level.next(random); }).deviation, 1, 0.15);
}

TEST(Rhythm, TurnsAsOftenAsItsFrequencySays) {
  Random random(3);
  Rhythm rhythm(10);
  int crossings = 0;
  double previous = 0;
  for (int frame = 0; frame < 128 * 100; ++frame) {
    rhythm.advance(random);
    if (previous < 0 && rhythm.value() >= 0) ++crossings;
    previous = rhythm.value();
  }
  EXPECT_NEAR(crossings, 1000, 20);
}

TEST(Rhythm, WaxesAndWanes) {
  Random random(3);
  Rhythm rhythm(10);
  std::vector<double> crests;  // one per second
  for (int second = 0; second < 100; ++second) {
    double crest = 0;
    for (int frame = 0; frame < 128; ++frame) {
      rhythm.advance(random);
      crest = std::max(crest, std::abs(rhythm.value()));
    }
    crests.push_back(crest);
  }
  EXPECT_LE(*std::ranges::max_element(crests), 1);
  EXPECT_GT(*std::ranges::max_element(crests), 0.95);
  EXPECT_LT(*std::ranges::min_element(crests), 0.4);
}

struct Blink {
  int gap, length;  // frames since the end of the last blink; frames above half the height
  double height;
};

std::vector<Blink> blinksOf(int frames) {
  Random random(2);
  Blinks blinks;
  std::vector<Blink> found;
  Blink current{};
  for (int frame = 0; frame < frames; ++frame) {
    const double level = blinks.next(random);
    if (level > 0) {
      ++current.length;
      current.height = std::max(current.height, level);
    } else if (current.length > 0) {
      found.push_back(current);
      current = {1, 0, 0};
    } else {
      ++current.gap;
    }
  }
  return found;
}

TEST(Blinks, ComeEveryThreeToSixSecondsWithTheirHeightAndLength) {
  const std::vector<Blink> found = blinksOf(128 * 300);
  EXPECT_GE(found.size(), 300U / 7);
  for (const Blink& blink : found) {
    EXPECT_GE(blink.gap, 3 * 128 - 1);
    EXPECT_LE(blink.gap, 6 * 128);
    EXPECT_GE(blink.length, 38);  // 0.3 to 0.5 s from beginning to end
    EXPECT_LE(blink.length, 64);
    EXPECT_GT(blink.height, 98);
    EXPECT_LE(blink.height, 150);
  }
}

}  // namespace
}  // namespace korvinel::instrument
