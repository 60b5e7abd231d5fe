#include <gtest/gtest.h>

#include "headless_program.h"

namespace korvinel {
namespace {

using platform::Mark;
using Texts = std::vector<std::string>;

TEST(BandPanel, PrintsFourPeaksPerChannelOfTheGroup) {
  HeadlessProgram program;
  auto& spectrum = program.state.amplitudeSpectrum;
  spectrum[1][7] = 12.38F;
  spectrum[1][8] = 20;
  spectrum[1][20] = 0.59F;
  spectrum[2][64] = 7.05F;
  program.state.showBandPeaks();
  EXPECT_EQ(program.window.firstNumbers.texts(),
            (Texts{"Valori numerici max", "Delta=12.3uV", "Theta=20uV", "Alfa=0.5uV", "Beta=0uV"}));
  EXPECT_EQ(program.window.secondNumbers.texts(),
            (Texts{"Valori numerici max", "Delta=0uV", "Theta=0uV", "Alfa=0uV", "Beta=7uV"}));
}

TEST(BandPanel, TheSecondGroupIsChannels3And4) {
  HeadlessProgram program;
  program.state.amplitudeSpectrum[3][17] = 3;
  program.state.amplitudeSpectrum[4][26] = 4;
  program.state.channelPair = 2;
  program.state.showBandPeaks();
  EXPECT_TRUE(program.window.firstNumbers.shows("Alfa=3uV"));
  EXPECT_TRUE(program.window.secondNumbers.shows("Alfa=4uV"));
}

TEST(BandPanel, AnotherGroupPrintsNoChannel) {
  HeadlessProgram program;
  for (int channel = 1; channel <= 4; ++channel) program.state.amplitudeSpectrum[channel][5] = 50;
  program.state.channelPair = 3;
  program.state.showBandPeaks();
  EXPECT_TRUE(program.window.firstNumbers.shows("Delta=0uV"));
  EXPECT_TRUE(program.window.secondNumbers.shows("Delta=0uV"));
}

TEST(BandPanel, TheBandsMeetWithoutAGapAndEndAtIndex64) {
  HeadlessProgram program;
  MainState& state = program.state;
  for (int i = 1; i <= 128; ++i) state.amplitudeSpectrum[2][i] = static_cast<float>(i);
  state.showBandPeaks();
  EXPECT_EQ(state.deltaPeak[2], 7.0F);
  EXPECT_EQ(state.thetaPeak[2], 16.0F);
  EXPECT_EQ(state.alfaPeak[2], 26.0F);
  EXPECT_EQ(state.betaPeak[2], 64.0F);
  for (int i = 1; i <= 64; ++i) state.amplitudeSpectrum[2][i] = static_cast<float>(65 - i);
  state.showBandPeaks();
  EXPECT_EQ(state.deltaPeak[2], 64.0F);
  EXPECT_EQ(state.thetaPeak[2], 57.0F);
  EXPECT_EQ(state.alfaPeak[2], 48.0F);
  EXPECT_EQ(state.betaPeak[2], 38.0F);
}

TEST(BandPanel, StandsAtItsPlacesAndDoesNotPileUp) {
  HeadlessProgram program;
  for (int block = 0; block < 50; ++block) program.state.showBandPeaks();
  std::vector<std::pair<double, double>> places;
  for (const Mark& mark : program.window.secondNumbers.marks())
    if (mark.kind == Mark::Kind::text) places.emplace_back(mark.x1, mark.y1);
  EXPECT_EQ(places, (std::vector<std::pair<double, double>>{{5, 15}, {5, 30}, {5, 45}, {5, 60}, {5, 75}}));
  EXPECT_LE(program.window.secondNumbers.marks().size(), 10U);
}

}  // namespace
}  // namespace korvinel
