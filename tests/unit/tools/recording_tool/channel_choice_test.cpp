#include "recording_tool/channel_choice.h"

#include "tool_files.h"

namespace korvinel::tool {
namespace {

TEST(ChannelChoice, NeedsFourNames) {
  for (const char* list : {"", "F3", "F3,F4,T5", "F3,F4,T5,T6,O1", "F3,,T5,T6"})
    EXPECT_NE(errorOf([&] { (void)parseChannels(list); }), "") << list;
  EXPECT_EQ(parseChannels("F3,F4,T5,T6"), (std::array<std::string, 4>{"F3", "F4", "T5", "T6"}));
}

}  // namespace
}  // namespace korvinel::tool
