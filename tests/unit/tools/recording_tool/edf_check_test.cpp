#include "recording_tool/edf_check.h"

#include <gtest/gtest.h>

namespace korvinel::tool {
namespace {

TEST(DigitalSamples, AreMicrovoltsAboutTheMidLevelWithinAByteAndCountWhatIsLimited) {
  Bounded<float, 258> samples;
  for (int s = 1; s <= 256; ++s) samples[s] = static_cast<float>(s - 1);
  int limited = 0;
  const auto digital = digitalSamples(samples, limited);
  EXPECT_EQ(limited, 0);
  EXPECT_EQ(digital.front(), -128);
  EXPECT_EQ(digital.back(), 127);
  samples[1] = -1;
  samples[256] = 256;
  const auto beyond = digitalSamples(samples, limited);
  EXPECT_EQ(limited, 2);
  EXPECT_EQ(beyond.front(), -128);
  EXPECT_EQ(beyond.back(), 127);
}

TEST(EdfPlan, HasAsManyAnnotationSignalsAsTheRecordsNeed) {
  EdfPlan plan;
  plan.blocks = 3;
  plan.annotations.resize(3);
  EXPECT_EQ(plan.annotationSignals(), 1);
  plan.annotations.resize(4);
  EXPECT_EQ(plan.annotationSignals(), 2);
}

}  // namespace
}  // namespace korvinel::tool
