#include "guidance/leftovers.h"

#include <gtest/gtest.h>

#include "opened_file.h"

namespace korvinel::guidance {
namespace {

TEST(Leftovers, AnEmptyWindowAndAnExaminationAtHandHaveNone) {
  FileProgram program;
  EXPECT_EQ(leftoversOf(program.state), Leftovers{});
  program.open();
  EXPECT_EQ(leftoversOf(program.state), Leftovers{});
  program.window.Displayx.press();
  EXPECT_EQ(leftoversOf(program.state), Leftovers{});
}

TEST(Leftovers, WithoutAChosenFileEveryPartThatShowsTheLastOneIsCovered) {
  FileProgram program;
  program.open();
  program.window.Displayx.press();
  program.window.Openx.press();
  const Leftovers left = leftoversOf(program.state);
  EXPECT_TRUE(left.firstTrace && left.secondTrace && left.spectra && left.numbers && left.strip && left.labels);
  EXPECT_FALSE(left.messages);  // cleared by the command
  EXPECT_TRUE(left.reason.starts_with("Esame precedente"));
  EXPECT_FALSE(left.labelsReason.empty());
}

TEST(Leftovers, OnlyWhatShowsSomethingIsCovered) {
  FileProgram program;
  program.open();
  program.window.Openx.press();
  EXPECT_FALSE(leftoversOf(program.state).firstTrace);  // an opened file has no traces yet
  program.open();
  program.host.dialogs.files.assign(1, recordings::folder + "nessuno.QVD");
  program.window.Openx.press();
  const Leftovers left = leftoversOf(program.state);
  EXPECT_FALSE(left.firstTrace || left.spectra || left.numbers || left.strip);
  EXPECT_TRUE(left.labels);  // date and length of the file before
}

TEST(Leftovers, TheNoticeOfAStoppedScanIsCoveredOnceTheFileIsGone) {
  FileProgram program;
  program.host.time.when([&] { return program.state.blockCount == 3; }, [&] { program.window.Stopd1.press(); });
  program.open();
  EXPECT_FALSE(leftoversOf(program.state).messages);
  program.window.subjectBox.type("");
  program.window.Starts1.press();
  EXPECT_TRUE(leftoversOf(program.state).messages);
}

TEST(Leftovers, TheSummaryOfAFileIsCoveredAfterARefusedStart) {
  FileProgram program;
  program.open();
  program.window.Stopd1.press();
  program.window.fileNameBox.type("nuovo");
  program.window.subjectBox.type("");
  program.window.Starts1.press();
  EXPECT_TRUE(leftoversOf(program.state).messages);
}

}  // namespace
}  // namespace korvinel::guidance
