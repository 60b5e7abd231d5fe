#include "recording/scan_messages.h"

#include <gtest/gtest.h>

#include "opened_file.h"
#include "signals.h"

namespace korvinel {
namespace {

using platform::Colour;
using platform::Mark;

/// Block n has 4n cycles on all channels; those of channel 4 are upside down.
std::string fileOfTones(int blocks) {
  std::string file = recordings::header();
  for (int n = 1; n <= blocks; ++n)
    file +=
        recordings::signalBlock([&](int channel, int s) { return 128 + sineAt(s, 4 * n, channel == 4 ? -40 : 40); });
  return file;
}

/// The spectrum index of the longest bar of the left panel.
std::size_t longestBar(const platform::Surface& panel) {
  std::vector<double> ends;
  for (const Mark& mark : panel.marks())
    if (mark.kind == Mark::Kind::box) ends.push_back(mark.x2);
  return static_cast<std::size_t>(std::min_element(ends.begin(), ends.end()) - ends.begin()) + 1;
}

TEST(AnnounceReading, TheWaitingTextStandsInAYellowBoxAsLongAsTheFileIsScanned) {
  FileProgram program;
  std::vector<Mark> inTheScan;
  program.host.time.when([&] { return program.state.blockCount == 9; },
                         [&] { inTheScan = program.window.messagePanel.marks(); });
  program.open();
  const std::vector<Mark> expected = {{Mark::Kind::box, Colour::yellow, 10, 10, 120, 30},
                                      {Mark::Kind::text, Colour::black, 12, 12, 0, 25.5, " Attendere lettura file..."}};
  EXPECT_EQ(inTheScan, expected);
}

TEST(ShowScannedFile, TheCoherenceGraphShowsTheMeanOfTheFile) {
  FileProgram program(fileOfTones(6));
  program.open();
  for (int i = 2; i <= 64; ++i)
    EXPECT_TRUE(hasLine(program.window.coherenceGraph, 0, 258 - 4 * (i - 1), 0, 258 - 4 * i, Colour::blue)) << i;
}

TEST(ShowScannedFile, TheSpectraAndTheTimeAreThoseOfTheLastBlockCounted) {
  FileProgram program(fileOfTones(6));
  program.open();
  EXPECT_EQ(longestBar(program.window.leftSpectrum), 4U * 5 + 1);
  EXPECT_EQ(program.window.timeLabel.text(), "Tempo=15 secondi");
}

TEST(ShowScannedFile, TheStripShowsTheSynchronyOfTheBlocksCountedAndItsMean) {
  FileProgram program(fileOfTones(6));
  program.open();
  const auto& strip = program.window.Picture6;
  EXPECT_TRUE(strip.shows("Syncro 1-2 media= 100"));
  EXPECT_TRUE(hasLine(strip, 12, 0, 15, 0, Colour::blue));
  EXPECT_FALSE(hasLine(strip, 15, 0, 18, 0, Colour::blue));
}

}  // namespace
}  // namespace korvinel
