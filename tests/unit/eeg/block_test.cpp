#include "eeg/block.h"

#include <gtest/gtest.h>

#include "eeg/spectrum.h"

namespace korvinel {
namespace {

TEST(EegBlock, AnExaminationHasAtMost199BlocksOfThreeSeconds) {
  EXPECT_EQ(eeg::blockLimit, 200);
  EXPECT_EQ(eeg::mostBlocks, 199);
  EXPECT_EQ(eeg::secondsPerBlock, 3);
}

TEST(EegBlock, TheReportedAndTheMainsRangeHaveTheirIndexes) {
  EXPECT_EQ(eeg::reportedRange.first, 1);
  EXPECT_EQ(eeg::reportedRange.last, 64);
  EXPECT_EQ(eeg::mainsRange.first, 100);
  EXPECT_EQ(eeg::mainsRange.last, 114);
}

}  // namespace
}  // namespace korvinel
