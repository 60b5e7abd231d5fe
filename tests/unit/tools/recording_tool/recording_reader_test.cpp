#include "recording_tool/recording_reader.h"

#include "recordings.h"
#include "tool_files.h"

namespace korvinel::tool {
namespace {

TEST(RecordingReader, ReadsEveryBlockOfAFileOfAnyLength) {
  const TemporaryFolder folder;
  RecordingReader reader(writeFile(folder / "a.QVD", recordings::file(250, {{2, "occhi"}})));
  EXPECT_EQ(reader.header().subject, "Rossi");
  EXPECT_EQ(reader.header().noteTexts[1], "occhi");
  Block block;
  for (int n = 1; n <= 250; ++n) {
    ASSERT_TRUE(reader.next(block)) << n;
    for (const int sample : {1, 256}) EXPECT_EQ(block[4][sample], static_cast<float>(recordings::levelOf(n))) << n;
  }
  EXPECT_FALSE(reader.next(block));
  EXPECT_EQ(reader.missingSamples(), 0);
}

TEST(RecordingReader, CountsWhatACutOffBlockLacksAndTakesTheMidLevelForIt) {
  const TemporaryFolder folder;
  RecordingReader reader(writeFile(folder / "a.QVD", recordings::header() + recordings::channelRecord(90)));
  Block block;
  ASSERT_TRUE(reader.next(block));
  EXPECT_EQ(block[1][256], 90.0F);
  EXPECT_EQ(block[2][1], 128.0F);
  EXPECT_EQ(reader.missingSamples(), 3 * 256);
  EXPECT_FALSE(reader.next(block));
}

TEST(RecordingReader, RefusesWhatIsNoRecordingOrOfAnUnknownVersion) {
  const TemporaryFolder folder;
  for (const std::string& bytes : {std::string(), std::string("no recording"), recordings::header({}, "V9")})
    EXPECT_NE(errorOf([&] { RecordingReader(writeFile(folder / "a.QVD", bytes)); }), "") << bytes;
  EXPECT_NE(errorOf([&] { RecordingReader(folder / "nothing"); }), "");
}

}  // namespace
}  // namespace korvinel::tool
