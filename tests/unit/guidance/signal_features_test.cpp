#include "guidance/signal_features.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <functional>

#include "signals.h"

namespace korvinel::guidance {
namespace {

using Samples = std::array<float, 256>;

/// Not rounded, so that the measures are exact. `signal`: of sample 1..256, around 0.
Samples samplesOf(const std::function<double(int)>& signal) {
  Samples samples{};
  for (int s = 1; s <= 256; ++s) samples.at(static_cast<std::size_t>(s - 1)) = static_cast<float>(128 + signal(s));
  return samples;
}

/// Quiet around the mid level, with these values from some samples on.
Samples steps(std::initializer_list<std::pair<int, double>> levels) {
  return samplesOf([&](int s) {
    double level = s % 2 == 0 ? 1 : -1;
    for (const auto& [first, value] : levels)
      if (s >= first) level = value + (s % 2 == 0 ? 1 : -1);
    return level;
  });
}

TEST(ShareAtLimits, CountsBothEndsAndNothingElse) {
  EXPECT_DOUBLE_EQ(shareAtLimits(samplesOf([](int s) { return s <= 64 ? -128 : s <= 96 ? 127 : 126; })), 96 / 256.0);
  EXPECT_DOUBLE_EQ(shareAtLimits(samplesOf([](int s) { return s % 2 == 0 ? -127 : 126; })), 0);
}

TEST(LongestStill, IsTheLongestStretchWithinTheRange) {
  EXPECT_EQ(longestStill(samplesOf([](int) { return 5; }), 4), 256);
  EXPECT_EQ(longestStill(samplesOf([](int s) { return s % 5; }), 4), 256);
  EXPECT_EQ(longestStill(samplesOf([](int s) { return s % 6; }), 4), 5);
  const auto stillAtTheEnd = samplesOf([](int s) { return s > 200 ? 0 : 10 * (s % 2); });
  EXPECT_EQ(longestStill(stillAtTheEnd, 4), 56 + 1);  // sample 200 has the same value
}

TEST(MainsHum, IsTheAmplitudeOfASineOfFiftyHertz) {
  const Hum hum = mainsHum(samplesOf([](int s) { return sineAt(s, 100, 20); }), 1, 2);
  EXPECT_NEAR(hum.amplitude, 20, 0.01);
  EXPECT_GT(hum.overNeighbours, 100);
}

TEST(MainsHum, BelowTheLeastIsNone) {
  const auto humming = samplesOf([](int s) { return sineAt(s, 100, 9); });
  EXPECT_NEAR(mainsHum(humming, 8.9, 2).amplitude, 9, 0.01);
  EXPECT_EQ(mainsHum(humming, 9.1, 2).amplitude, 0);
}

TEST(MainsHum, IsSeenInASecondOfTheBlock) {
  const Hum hum = mainsHum(samplesOf([](int s) { return s > 160 ? sineAt(s, 100, 20) : 0; }), 1, 2);
  EXPECT_GT(hum.amplitude, 15);
  EXPECT_LT(hum.amplitude, 20);
}

TEST(MainsHum, IsNotInWavesOfTheBrainNorInTheMainsOfSixtyHertzNorInALevel) {
  EXPECT_LT(mainsHum(samplesOf([](int s) { return sineAt(s, 20, 50); }), 0, 0).amplitude, 0.01);
  EXPECT_LT(mainsHum(samplesOf([](int s) { return sineAt(s, 121, 50); }), 0, 0).amplitude, 0.5);
  EXPECT_LT(mainsHum(samplesOf([](int) { return 90; }), 0, 0).amplitude, 0.001);
}

TEST(MainsHum, DoesNotStandOutOfActivityThatIsAsStrongBesideIt) {
  const auto muscles = samplesOf([](int s) {
    double sum = 0;
    for (const int cycles : {86, 90, 100, 110, 114}) sum += sineAt(s, cycles, 10, cycles);
    return sum;
  });
  EXPECT_GT(mainsHum(muscles, 0, 0).amplitude, 9);
  EXPECT_EQ(mainsHum(muscles, 1, 2).amplitude, 0);
}

TEST(Jumps, AreTheLargestChangesAndTheUsualOne) {
  const Jumps found = jumps(steps({{50, 40}, {100, 110}, {150, 60}}), 1);
  EXPECT_NEAR(found.largest, 70, 2.001);
  EXPECT_NEAR(found.third, 40, 2.001);
  EXPECT_DOUBLE_EQ(found.usual, 2);
}

TEST(Jumps, ThatAreCloseTogetherCountOnce) {
  const Jumps found = jumps(steps({{50, 40}, {53, 80}, {56, 120}}), 1);
  EXPECT_NEAR(found.largest, 40, 2.001);
  EXPECT_LE(found.third, 2);
}

TEST(Jumps, AtTheEdgesOfTheBlockAreFound) {
  EXPECT_NEAR(jumps(steps({{2, 90}}), 1).largest, 90, 2.001);
  EXPECT_NEAR(jumps(steps({{256, 90}}), 1).largest, 90, 2.001);
}

TEST(Jumps, OfTwoSamplesAreWholeTwoApart) {
  const auto slow = samplesOf([](int s) { return s < 100 ? 0 : s == 100 ? 50 : 100; });
  EXPECT_DOUBLE_EQ(jumps(slow, 1).largest, 50);
  EXPECT_DOUBLE_EQ(jumps(slow, 2).largest, 100);
  EXPECT_DOUBLE_EQ(jumps(slow, 2).usual, 1);  // never below
}

TEST(ShareDisplaced, IsThatOfTheMeanOverAFifthOfASecond) {
  EXPECT_DOUBLE_EQ(shareDisplaced(samplesOf([](int) { return 61; }), 60), 1);
  EXPECT_DOUBLE_EQ(shareDisplaced(samplesOf([](int) { return -61; }), 60), 1);
  EXPECT_DOUBLE_EQ(shareDisplaced(samplesOf([](int) { return 59; }), 60), 0);
  EXPECT_NEAR(shareDisplaced(samplesOf([](int s) { return s <= 128 ? 100 : 0; }), 60), 0.5, 0.03);
}

TEST(ShareDisplaced, IgnoresTheStrongestAlpha) {
  EXPECT_EQ(shareDisplaced(samplesOf([](int s) { return sineAt(s, 20, 127); }), 60), 0);
}

}  // namespace
}  // namespace korvinel::guidance
