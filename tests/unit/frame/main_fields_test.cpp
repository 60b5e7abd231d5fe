#include "frame/main_fields.h"

#include <gtest/gtest.h>

#include "headless_program.h"

namespace korvinel {
namespace {

using Flag = Int16 MainFields::*;
using Number = int MainFields::*;

TEST(MainFields, BeforeStartUpNothingHasBegun) {
  const HeadlessProgram program;
  const MainFields& fields = program.state;
  const Flag flags[] = {
      &MainFields::acquisitionRunning, &MainFields::stopRequested,    &MainFields::endRequested,
      &MainFields::intervalSelectable, &MainFields::recordingActive,  &MainFields::recordingArmed,
      &MainFields::replayActive,       &MainFields::printRequested,   &MainFields::fileNameExists,
      &MainFields::linkPending,        &MainFields::turnRunning,      &MainFields::linkReady,
      &MainFields::framesCut,          &MainFields::artefactFlag,     &MainFields::fileLoopRunning,
      &MainFields::assembling,         &MainFields::dataFileWhole,    &MainFields::recordingFaultUntold,
      &MainFields::nobodyToAsk,        &MainFields::selectionDragging};
  for (std::size_t i = 0; i < std::size(flags); ++i) EXPECT_EQ(fields.*flags[i], 0) << i;
  EXPECT_EQ(fields.streamStopped, 1);
}

TEST(MainFields, BeforeStartUpNothingHasBeenCounted) {
  const HeadlessProgram program;
  const MainFields& fields = program.state;
  const Flag counts[] = {&MainFields::blockCount,     &MainFields::serialPort,      &MainFields::commandChecksum,
                         &MainFields::sharedSelector, &MainFields::pairToggleCount, &MainFields::channelIndex,
                         &MainFields::noteCount,      &MainFields::openNote,        &MainFields::bandColour,
                         &MainFields::lineX1,         &MainFields::lineX2,          &MainFields::lineY1,
                         &MainFields::lineY2,         &MainFields::selectionStartX, &MainFields::selectionEndX};
  for (std::size_t i = 0; i < std::size(counts); ++i) EXPECT_EQ(fields.*counts[i], 0) << i;
  const Number numbers[] = {&MainFields::messageAnswer, &MainFields::streamPosition, &MainFields::temporaryWritten,
                            &MainFields::blocksFromMemory};
  for (std::size_t i = 0; i < std::size(numbers); ++i) EXPECT_EQ(fields.*numbers[i], 0) << i;
  EXPECT_EQ(fields.timerMark, 0.0);
  EXPECT_EQ(fields.readStartTime, 0.0);
}

TEST(MainFields, TheSizesOfABlockAndTheScalesAreThoseOfTheInstrument) {
  const HeadlessProgram program;
  const MainFields& fields = program.state;
  EXPECT_EQ(fields.samplesPerBlock, 256);
  EXPECT_EQ(fields.fftHalf, 128);
  EXPECT_EQ(fields.displayedBins, 64);
  EXPECT_EQ(fields.artefactThreshold, 130);
  EXPECT_EQ(fields.channelPair, 1);
  EXPECT_EQ(fields.displaySpeed, 6);
  EXPECT_EQ(fields.microvoltScale, 60);
  EXPECT_EQ(fields.startButtonColour, platform::Colour::buttonFace);
  EXPECT_EQ(fields.nextFileCommand, FileCommand::none);
}

}  // namespace
}  // namespace korvinel
