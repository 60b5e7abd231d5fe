#include "recording_tool/progress_bar.h"

#include <gtest/gtest.h>

namespace korvinel::tool {
namespace {

TEST(Progress, TellsTheTimeThatIsLeft) {
  EXPECT_EQ(progressText(0, 4, 0), "[" + std::string(40, '.') + "] 0/4");
  EXPECT_EQ(progressText(1, 4, 30), "[" + std::string(10, '#') + std::string(30, '.') + "] 1/4  1:30 left");
  EXPECT_EQ(progressText(4, 4, 120), "[" + std::string(40, '#') + "] 4/4");
}

}  // namespace
}  // namespace korvinel::tool
