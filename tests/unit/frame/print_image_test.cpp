#include "frame/print_image.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "headless_program.h"

namespace korvinel {
namespace {

using testing::ElementsAre;

TEST(ConfirmPrint, WaitsAFifthOfASecondAfterOkAndNotAfterCancel) {
  HeadlessProgram program;
  double mark = 0;
  const double before = program.host.time.seconds();
  EXPECT_FALSE(confirmPrint(program.host.platform, "Stampare?", mark));  // answered with Cancel
  EXPECT_EQ(program.host.time.seconds(), before);
  program.host.dialogs.choices = {platform::Choice::ok};
  EXPECT_TRUE(confirmPrint(program.host.platform, "Stampare?", mark));
  EXPECT_EQ(mark, before);
  EXPECT_GE(program.host.time.seconds() - before, 0.2 - 1e-9);
  EXPECT_LT(program.host.time.seconds() - before, 0.22);
}

TEST(PrintActiveWindow, EventsAreProcessedBetweenTheCaptureAndThePage) {
  HeadlessProgram program;
  std::vector<std::string> doneMeanwhile;
  program.host.time.after(0, [&] { doneMeanwhile = program.host.printer.done; });
  printActiveWindow(program.host.platform);
  EXPECT_THAT(doneMeanwhile, ElementsAre("key 1"));
  EXPECT_THAT(program.host.printer.done, ElementsAre("key 1", "print 10 3 190 145"));
}

}  // namespace
}  // namespace korvinel
