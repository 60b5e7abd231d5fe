#include "eeg/spectrum.h"

#include <gtest/gtest.h>

namespace korvinel::eeg {
namespace {

TEST(SpectrumIndex, OneIsZeroHertzAndTwoMakeAHertz) {
  for (int index = 1; index <= keptIndexes; ++index) EXPECT_EQ(hertzOf(index), 0.5 * (index - 1)) << index;
}

TEST(SpectrumIndex, ARangeHoldsBothItsEnds) {
  EXPECT_EQ((IndexRange{17, 26}.size()), 10);
  EXPECT_EQ((IndexRange{5, 5}.size()), 1);
}

}  // namespace
}  // namespace korvinel::eeg
