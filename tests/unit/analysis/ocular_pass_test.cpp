#include <gtest/gtest.h>

#include <array>

#include "analysis/ocular_pass.h"
#include "headless_program.h"
#include "signals.h"

namespace korvinel {
namespace {

using Channel = std::array<Fixed, 257>;

Channel ramp(int start) {
  Channel channel;
  for (std::size_t i = 0; i < channel.size(); ++i) channel[i] = start + static_cast<int>(i) % 50;
  return channel;
}

TEST(FillFromReserve, ABadSampleTakesTheFirstGoodPairForBothChannels) {
  Channel first = ramp(100), second = ramp(120);
  first[80] = 199;
  const Channel before1 = first, before2 = second;
  EXPECT_TRUE(fillFromReserve(first.data(), second.data()));
  EXPECT_EQ(first[80], before1[1]);
  EXPECT_EQ(second[80], before2[1]);
  EXPECT_EQ(first[79], before1[79]);
  EXPECT_EQ(second[81], before2[81]);
}

TEST(FillFromReserve, EachChannelTakesByItsOwnCount) {
  Channel first = ramp(100), second = ramp(120);
  first[10] = first[11] = 20;
  second[30] = second[31] = 250;
  const Channel before1 = first, before2 = second;
  fillFromReserve(first.data(), second.data());
  for (const std::size_t step : {0U, 1U}) {
    EXPECT_EQ(first[10 + step], before1[1 + step]);
    EXPECT_EQ(second[10 + step], before2[1 + step]);
    EXPECT_EQ(first[30 + step], before1[1 + step]);
    EXPECT_EQ(second[30 + step], before2[1 + step]);
  }
}

TEST(FillFromReserve, WhenBothAreBadTheSecondIsMendedByTheFirstsPair) {
  Channel first = ramp(100), second = ramp(120);
  first[10] = second[10] = 20;
  second[30] = 250;
  const Channel before2 = second;
  fillFromReserve(first.data(), second.data());
  EXPECT_EQ(second[10], before2[1]);
  EXPECT_EQ(second[30], before2[1]);  // its own count has not advanced yet
}

TEST(FillFromReserve, ALimitValueIsNeitherReplacedNorGathered) {
  Channel first = ramp(100), second = ramp(120);
  first[1] = 58;
  second[2] = 198;
  first[200] = Fixed::nearest(57.9999);
  second[220] = Fixed::nearest(198.0001);
  const Channel before1 = first;
  fillFromReserve(first.data(), second.data());
  EXPECT_EQ(first[1], Fixed(58));
  EXPECT_EQ(second[2], Fixed(198));
  EXPECT_EQ(first[200], before1[3]);
  EXPECT_EQ(first[220], before1[3]);
}

TEST(FillFromReserve, BeyondTheReserveTheMidLevelIsTaken) {
  Channel first, second;
  first.fill(0);
  second.fill(100);
  first[7] = 90;
  first[9] = 95;
  EXPECT_TRUE(fillFromReserve(first.data(), second.data()));
  EXPECT_EQ(first[1], Fixed(90));
  EXPECT_EQ(first[2], Fixed(95));
  EXPECT_EQ(first[3], Fixed(128));
  EXPECT_EQ(second[3], Fixed(128));
  EXPECT_EQ(first[256], Fixed(128));
}

class OcularPass : public testing::Test {
 protected:
  void SetUp() override {
    state_.startUp();
    program_.window.ocularCheck.setChecked(true);
    fillAllChannels(state_, [](int s) { return 128 + sineAt(s, 8, 30) + 1.0 / 3; });
  }

  HeadlessProgram program_;
  MainState& state_ = program_.state;
};

TEST_F(OcularPass, WithoutTheTickTheBlockIsUnchanged) {
  program_.window.ocularCheck.setChecked(false);
  state_.sampleBlock[1][50] = 250;
  const auto before = state_.sampleBlock;
  state_.removeOcularArtefacts();
  EXPECT_EQ(state_.sampleBlock, before);
}

TEST_F(OcularPass, AGoodBlockIsUnchangedToTheLastBit) {
  const auto before = state_.sampleBlock;
  state_.removeOcularArtefacts();
  EXPECT_EQ(state_.sampleBlock, before);
}

TEST_F(OcularPass, OneReplacementRoundsAllFourChannelsToFourDecimals) {
  state_.sampleBlock[1][50] = 250;
  const auto before = state_.sampleBlock;
  state_.removeOcularArtefacts();
  for (int channel = 1; channel <= 4; ++channel)
    for (int s = 1; s <= 256; ++s) {
      const int source = channel <= 2 && s == 50 ? 1 : s;
      const double rounded = Fixed::nearest(static_cast<double>(before[channel][source])).toDouble();
      ASSERT_EQ(state_.sampleBlock[channel][s], static_cast<float>(rounded)) << channel << ", " << s;
    }
}

TEST_F(OcularPass, EachPairHasAReserveOfItsOwn) {
  fillChannel(state_, 1, [](int) { return 10; });  // no good pair among channels 1 and 2
  state_.sampleBlock[3][100] = 220;
  const float good = state_.sampleBlock[3][1];
  state_.removeOcularArtefacts();
  EXPECT_EQ(state_.sampleBlock[1][100], 128.0F);
  EXPECT_EQ(state_.sampleBlock[2][100], 128.0F);
  EXPECT_NEAR(state_.sampleBlock[3][100], good, 1e-4);
}

}  // namespace
}  // namespace korvinel
