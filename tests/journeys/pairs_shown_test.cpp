#include <gtest/gtest.h>

#include <array>

#include "opened_file.h"

/// The record knows which pair of sites each graph shows, also when "Canali" has chosen another one since.
namespace korvinel {
namespace {

using Pairs = std::array<int, 5>;

/// Of traces, spectra, coherence, numbers and time strip.
Pairs shownBy(const MainState& s) { return {s.tracesPair, s.spectraPair, s.coherencePair, s.numbersPair, s.stripPair}; }

TEST(PairsShown, NothingBeforeTheFirstBlockThenThePairOfEachBlock) {
  HeadlessProgram program;
  program.startAcquisition();
  EXPECT_EQ(shownBy(program.state), (Pairs{0, 0, 0, 0, 0}));
  program.acquireBlocks(1);
  EXPECT_EQ(shownBy(program.state), (Pairs{1, 1, 1, 1, 1}));
  program.window.Canali.press();
  EXPECT_EQ(shownBy(program.state), (Pairs{1, 1, 1, 1, 1}));  // until the next block
  program.acquireBlocks(1);
  EXPECT_EQ(shownBy(program.state), (Pairs{2, 2, 2, 2, 2}));
}

TEST(PairsShown, ARejectedBlockIsThatOfTheFirstPair) {
  HeadlessProgram program;
  program.startAcquisition();
  program.window.Canali.press();
  program.acquireBlocks(1);
  program.host.instrument.blocks.assign(1, std::string(1024, '\xFF'));
  program.state.artefactThreshold = 70;
  program.host.time.runUntil([&] { return program.state.artefactFlag == 1; });
  EXPECT_EQ(shownBy(program.state), (Pairs{1, 2, 2, 2, 2}));
}

TEST(PairsShown, AfterAnExaminationOnlySpectraAndStripFollowTheButton) {
  HeadlessProgram program;
  program.startAcquisition();
  program.acquireBlocks(2);
  program.window.Stopd1.press();
  program.host.time.runUntil([&] { return program.state.intervalSelectable == 1; });
  program.window.Canali.press();
  EXPECT_EQ(shownBy(program.state), (Pairs{1, 2, 1, 1, 2}));
}

TEST(PairsShown, AnOpenedFileShowsNoTraceUntilItsReplay) {
  FileProgram program;
  program.open();
  EXPECT_EQ(shownBy(program.state), (Pairs{0, 1, 1, 0, 1}));
  program.window.Canali.press();
  program.window.Displayx.press();
  EXPECT_EQ(shownBy(program.state), (Pairs{2, 2, 1, 2, 2}));
  program.open();
  EXPECT_EQ(shownBy(program.state), (Pairs{0, 2, 2, 0, 2}));
}

TEST(PairsShown, AFileThatCannotBeReadLeavesTheGraphsEmpty) {
  FileProgram program;
  program.open();
  program.host.dialogs.files.assign(1, recordings::folder + "nessuno.QVD");
  program.window.Openx.press();
  EXPECT_EQ(shownBy(program.state), (Pairs{0, 0, 0, 0, 0}));
}

TEST(PairsShown, EveryExaminationIsCounted) {
  FileProgram program;
  const int before = program.shared.examination;
  program.open();
  EXPECT_EQ(program.shared.examination, before + 1);
  program.host.dialogs.files.clear();
  program.window.Openx.press();  // and gives up in the list of files
  EXPECT_EQ(program.shared.examination, before + 1);
  program.window.Stopd1.press();
  program.startAcquisition();
  EXPECT_EQ(program.shared.examination, before + 2);
}

}  // namespace
}  // namespace korvinel
