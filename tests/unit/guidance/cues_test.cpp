#include "guidance/cues.h"

#include <gtest/gtest.h>

#include "headless_program.h"

namespace korvinel::guidance {
namespace {

struct CuesTest : testing::Test {
  void acquire(int blocks) {
    record.acquisitionRunning = 1;
    record.intervalSelectable = 0;
    record.artefactFlag = 0;
    record.blockCount = Int16(blocks);
  }
  Cue due() { return cues.due(record); }

  HeadlessProgram program;
  MainState& record = program.state;
  Cues cues;
};

TEST_F(CuesTest, ANewProgramIsSilent) { EXPECT_EQ(due(), Cue::none); }

TEST_F(CuesTest, SevenMinutesAreHeardOnceWithTheirLastBlock) {
  acquire(139);
  EXPECT_EQ(due(), Cue::none);
  acquire(140);
  EXPECT_EQ(due(), Cue::enoughData);
  EXPECT_EQ(due(), Cue::none);
  acquire(141);
  EXPECT_EQ(due(), Cue::none);
}

TEST_F(CuesTest, ABlockThatIsAwaitedOrRejectedDoesNotCount) {
  acquire(140);
  record.artefactFlag = 1;
  EXPECT_EQ(acceptedBlocks(record), 139);
  EXPECT_EQ(due(), Cue::none);
  record.artefactFlag = 0;
  EXPECT_EQ(due(), Cue::enoughData);
}

TEST_F(CuesTest, ACountThatBeginsAgainReachesSevenMinutesAgain) {
  acquire(140);
  EXPECT_EQ(due(), Cue::enoughData);
  acquire(0);  // "Registra": the examination counts from here
  EXPECT_EQ(due(), Cue::none);
  acquire(140);
  EXPECT_EQ(due(), Cue::enoughData);
}

TEST_F(CuesTest, TheEndIsHeardWhenTheDataAreThereNotAtStop) {
  acquire(12);
  EXPECT_EQ(due(), Cue::none);
  record.acquisitionRunning = 0;
  record.stopRequested = 1;
  EXPECT_EQ(due(), Cue::none);
  record.intervalSelectable = 1;
  EXPECT_EQ(due(), Cue::ended);
  EXPECT_EQ(due(), Cue::none);
}

TEST_F(CuesTest, TheEndOfALongExaminationIsNotSevenMinutesAgain) {
  acquire(200);
  EXPECT_EQ(due(), Cue::enoughData);
  record.acquisitionRunning = 0;
  record.intervalSelectable = 1;
  EXPECT_EQ(due(), Cue::ended);
  EXPECT_EQ(due(), Cue::none);
}

TEST_F(CuesTest, AFileThatIsReadOrReplayedIsSilent) {
  record.openFilePath = "C:\\QUARVEL5\\DATAFILE\\lungo.QVD";
  acquire(199);
  EXPECT_EQ(due(), Cue::none);
  record.acquisitionRunning = 0;
  record.intervalSelectable = 1;
  EXPECT_EQ(due(), Cue::none);
}

TEST_F(CuesTest, EachLossOfTheInstrumentIsHeardOnce) {
  for (const LinkTrouble trouble : {LinkTrouble::port, LinkTrouble::silence, LinkTrouble::lostFrames}) {
    record.linkTrouble = trouble;
    EXPECT_EQ(due(), Cue::linkLost);
    EXPECT_EQ(due(), Cue::none);
    record.linkTrouble = LinkTrouble::none;
    EXPECT_EQ(due(), Cue::none);
  }
}

TEST_F(CuesTest, ALossIsMoreUrgentThanTheEnd) {
  acquire(5);
  EXPECT_EQ(due(), Cue::none);
  record.acquisitionRunning = 0;
  record.intervalSelectable = 1;
  record.linkTrouble = LinkTrouble::silence;
  EXPECT_EQ(due(), Cue::linkLost);
  EXPECT_EQ(due(), Cue::none);
}

TEST(SoundsOf, EachCueIsKnownByItsNumber) {
  EXPECT_EQ(soundsOf(Cue::none), 0);
  EXPECT_EQ(soundsOf(Cue::enoughData), 1);
  EXPECT_EQ(soundsOf(Cue::ended), 2);
  EXPECT_EQ(soundsOf(Cue::linkLost), 3);
}

}  // namespace
}  // namespace korvinel::guidance
