#include "platform/qt/toolkit_start.h"

#include <gmock/gmock.h>

namespace korvinel::platform {
namespace {

using testing::AllOf;
using testing::HasSubstr;

TEST(NoDisplaySentence, SaysThatThereIsNoneOrNamesTheOneThatCannotBeUsed) {
  EXPECT_THAT(noDisplaySentence("", "", ""), HasSubstr("non c'è uno schermo"));
  EXPECT_THAT(noDisplaySentence("", "xcb", ""), HasSubstr("non c'è uno schermo"));
  EXPECT_THAT(noDisplaySentence(":99", "", "could not connect to display :99"),
              AllOf(HasSubstr("lo schermo :99 non si può usare"), HasSubstr("(could not connect to display :99)")));
}

TEST(NoDisplaySentence, NamesAWayOfDrawingThatDoesNotExist) {
  EXPECT_THAT(noDisplaySentence(":0", "nothing", ""), HasSubstr("QT_QPA_PLATFORM=nothing"));
}

}  // namespace
}  // namespace korvinel::platform
