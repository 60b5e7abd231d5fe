#include "recording_tool/channel_stream.h"

#include <cmath>

#include "tool_files.h"
#include "unit/tools/recording_tool/edf_files.h"

namespace korvinel::tool {
namespace {

TEST(ChannelStream, IsInMicrovoltsWhateverTheUnit) {
  const TemporaryFolder folder;
  const std::pair<const char*, double> units[] = {{"uV", 1}, {"mV", 1e3}, {"V", 1e6}, {"nV", 1e-3}};
  for (const auto& [unit, microvolts] : units) {
    const EdfFile file(sineFile(folder / "a.edf", 128, 4, unit, 100 / microvolts, 50 / microvolts), "a.edf");
    ChannelStream stream(file, 1);
    const auto samples = stream.take(128);
    ASSERT_EQ(samples.size(), 128U);
    for (std::size_t i = 0; i < samples.size(); ++i)
      ASSERT_NEAR(samples[i], 50 * std::sin(2 * 3.14159265358979 * 4 * static_cast<double>(i) / 128), 0.01) << unit;
  }
}

TEST(ChannelStream, GivesEverySampleOnceInPiecesOfAnySize) {
  const TemporaryFolder folder;
  for (const int rate : {128, 200, 256}) {
    const EdfFile file(sineFile(folder / "a.edf", rate, 10, "uV", 100, 50), "a.edf");
    const EdfFile same(sineFile(folder / "b.edf", rate, 10, "uV", 100, 50), "b.edf");
    ChannelStream whole(file, 2), pieces(same, 2);
    const auto all = whole.take(100'000);
    EXPECT_NEAR(static_cast<double>(all.size()), 1280, 2) << rate;
    EXPECT_TRUE(whole.take(1).empty());
    std::vector<double> joined;
    for (auto piece = pieces.take(7); !piece.empty(); piece = pieces.take(7))
      joined.insert(joined.end(), piece.begin(), piece.end());
    EXPECT_EQ(joined, all) << rate;
  }
}

TEST(ChannelStream, RefusesWhatIsNoVoltageAndRatesThatSayNothing) {
  const TemporaryFolder folder;
  const EdfFile degrees(sineFile(folder / "a.edf", 128, 2, "degC", 100, 10), "a.edf");
  EXPECT_NE(errorOf([&] { ChannelStream(degrees, 0); }).find("no voltage"), std::string::npos);
  const EdfFile slow(sineFile(folder / "b.edf", 63, 2, "uV", 100, 10), "b.edf");
  EXPECT_NE(errorOf([&] { ChannelStream(slow, 0); }).find("63 samples a second"), std::string::npos);
}

}  // namespace
}  // namespace korvinel::tool
