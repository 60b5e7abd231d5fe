#include "eeg/montage.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace korvinel::eeg {
namespace {

TEST(Montage, TheChannelsAreLeftAndRightFrontalThenTemporal) {
  std::vector<std::string> sites;
  for (int channel = 1; channel <= channelCount; ++channel) sites.emplace_back(siteOf(channel));
  EXPECT_EQ(sites, (std::vector<std::string>{"F1", "F2", "T5", "T6"}));
}

TEST(Montage, ThePairsAreFrontalTemporalLeftAndRight) {
  const char* const expected[pairCount][2] = {{"F1", "F2"}, {"T5", "T6"}, {"F1", "T5"}, {"F2", "T6"}};
  for (int pair = 1; pair <= pairCount; ++pair) {
    EXPECT_STREQ(siteOf(channelsOfPair(pair).first), expected[pair - 1][0]) << pair;
    EXPECT_STREQ(siteOf(channelsOfPair(pair).second), expected[pair - 1][1]) << pair;
  }
}

TEST(Montage, TheSecondPairShowsTheTemporalChannels) {
  EXPECT_STREQ(siteOf(firstChannelShown(1)), "F1");
  EXPECT_STREQ(siteOf(firstChannelShown(2)), "T5");
}

}  // namespace
}  // namespace korvinel::eeg
