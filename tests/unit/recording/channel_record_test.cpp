#include "recording/channel_record.h"

#include <gtest/gtest.h>

#include <limits>

#include "recordings.h"
#include "values/field_reader.h"

namespace korvinel {
namespace {

TEST(StoredSample, RoundsHalvesUpLimitsAndShunsThreeBytes) {
  const std::pair<float, int> cases[] = {{0.4F, 1},     {0.5F, 1},   {1.49F, 1},  {1.5F, 2},     {9.2F, 8},
                                         {8.6F, 8},     {9.6F, 11},  {10.0F, 11}, {25.7F, 27},   {26.4F, 27},
                                         {13.0F, 13},   {44.0F, 44}, {34.0F, 34}, {254.5F, 255}, {255.5F, 255},
                                         {300.0F, 255}, {-5.0F, 1}};
  for (const auto& [sample, stored] : cases) EXPECT_EQ(storedSample(sample), static_cast<float>(stored)) << sample;
}

TEST(StoredSample, NoNumberAndInfinitiesAreStoredWithinTheRange) {
  EXPECT_EQ(storedSample(std::numeric_limits<float>::quiet_NaN()), 1.0F);
  EXPECT_EQ(storedSample(std::numeric_limits<float>::infinity()), 255.0F);
  EXPECT_EQ(storedSample(-std::numeric_limits<float>::infinity()), 1.0F);
}

TEST(ChannelRecord, Is256BytesThenDashAndLineEndAndStoresTheRoundedValuesBack) {
  Bounded<float, 258> samples;
  for (int s = 0; s <= 257; ++s) samples[s] = 9.2F;
  const std::string record = takeChannelRecord(samples);
  EXPECT_EQ(record, recordings::channelRecord(8));
  EXPECT_EQ(samples[1], 8.0F);
  EXPECT_EQ(samples[256], 8.0F);
  EXPECT_EQ(samples[0], 9.2F);
  EXPECT_EQ(samples[257], 9.2F);
}

TEST(ReadByteBlock, ReadsByCountWhateverTheBytesAre) {
  for (const int value : {13, 44, 34, 10, 0, 255}) {
    const std::string bytes = recordings::block(value);
    TextSource source(bytes);
    Bounded<float, 4, 258> block;
    readByteBlock(source, 4, block);
    EXPECT_EQ(source.peek(), ByteSource::end);
    for (int channel = 1; channel <= 4; ++channel)
      for (int s = 1; s <= 256; ++s) ASSERT_EQ(block[channel][s], static_cast<float>(value));
  }
}

TEST(ReadByteBlock, SkipsThreeBytesBehindAChannelWhateverTheyAre) {
  std::string bytes = recordings::block(70);
  bytes.replace(256, 3, "abc");
  TextSource source(bytes);
  Bounded<float, 4, 258> block;
  readByteBlock(source, 4, block);
  EXPECT_EQ(block[2][1], 70.0F);
}

TEST(ReadByteBlock, SamplesBehindTheEndKeepWhatTheBufferHeld) {
  const std::string bytes = recordings::block(70).substr(0, 259 + 100);
  TextSource source(bytes);
  Bounded<float, 4, 258> block;
  for (int channel = 1; channel <= 4; ++channel)
    for (int s = 1; s <= 256; ++s) block[channel][s] = 5;
  readByteBlock(source, 4, block);
  EXPECT_EQ(block[1][256], 70.0F);
  EXPECT_EQ(block[2][100], 70.0F);
  EXPECT_EQ(block[2][101], 5.0F);
  EXPECT_EQ(block[4][256], 5.0F);
}

std::string numberBlock(const std::string& first) {
  std::string text = first;
  for (int i = 2; i <= 1024; ++i) text += (i % 2 == 0 ? "," : "\r\n") + std::to_string(i % 200) + ".5";
  return text + "\r\n";
}

TEST(ReadNumberBlock, ReadsDecimalFieldsChannelByChannel) {
  const std::string text = numberBlock("-3.25");
  TextSource source(text);
  Bounded<float, 4, 258> block;
  readNumberBlock(source, 4, block);
  EXPECT_EQ(block[1][1], -3.25F);
  EXPECT_EQ(block[1][2], 2.5F);
  EXPECT_EQ(block[2][1], 57.5F);
  EXPECT_EQ(block[4][256], 24.5F);
  EXPECT_EQ(source.peek(), ByteSource::end);
}

TEST(ReadNumberBlock, AFieldThatIsNoNumberOrTooLargeLeavesItsSampleAndTheOthersInPlace) {
  for (const char* bad : {"abc", "nan", "inf", "1e300", "1e39", "", "--1", "1e999999"}) {
    const std::string text = numberBlock(bad);
    TextSource source(text);
    Bounded<float, 4, 258> block;
    block[1][1] = 77;
    readNumberBlock(source, 4, block);
    EXPECT_EQ(block[1][1], 77.0F) << bad;
    EXPECT_EQ(block[1][2], 2.5F) << bad;
    EXPECT_EQ(block[4][256], 24.5F) << bad;
  }
}

TEST(ReadNumberBlock, ADecimalCommaMakesTwoFields) {
  const std::string text = numberBlock("128,5");
  TextSource source(text);
  Bounded<float, 4, 258> block;
  readNumberBlock(source, 4, block);
  EXPECT_EQ(block[1][1], 128.0F);
  EXPECT_EQ(block[1][2], 5.0F);
}

TEST(ReadNumberBlock, EndsWithTheSource) {
  TextSource source("1,2,3");
  Bounded<float, 4, 258> block;
  block[1][4] = 9;
  readNumberBlock(source, 4, block);
  EXPECT_EQ(block[1][3], 3.0F);
  EXPECT_EQ(block[1][4], 9.0F);
}

}  // namespace
}  // namespace korvinel
