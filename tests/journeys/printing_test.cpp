#include <gtest/gtest.h>

#include "opened_file.h"

/// Printing in the middle of a replay: the request stays set until the operator answers Cancel.
namespace korvinel {
namespace {

using platform::Choice;

struct PrintingReplay : testing::Test {
  PrintingReplay() { program.open(); }

  void replay(std::initializer_list<Choice> answers) {
    program.host.dialogs.choices = answers;
    program.host.dialogs.shown.clear();
    program.shown.clear();
    program.window.Displayx.press();
  }
  void pressPrintDuringBlock(int block) {
    program.host.time.when([this, block] { return program.state.blockCount == block; },
                           [this] { program.window.Stampa.press(); });
  }
  std::size_t prompts() const { return program.host.dialogs.shown.size(); }
  std::size_t pages() const {
    const auto& done = program.host.printer.done;
    return static_cast<std::size_t>(std::count(done.begin(), done.end(), "print 10 3 190 145"));
  }

  FileProgram program{recordings::file(10)};
};

TEST_F(PrintingReplay, AConfirmedPrintEndsTheReplayAfterTheBlockBeingShownAndPromptsOnceMore) {
  pressPrintDuringBlock(3);
  replay({Choice::ok, Choice::cancel});
  EXPECT_EQ(prompts(), 2U);
  EXPECT_EQ(pages(), 1U);
  // The replay found the request set after reading the next block.
  EXPECT_EQ(program.shown.size(), 4U);
  EXPECT_EQ(program.state.printRequested, 0);
}

TEST_F(PrintingReplay, EveryLaterReplayStopsAfterItsFirstBlockUntilCancel) {
  pressPrintDuringBlock(3);
  replay({Choice::ok, Choice::ok});
  EXPECT_EQ(program.state.printRequested, 1);
  replay({Choice::ok});
  EXPECT_EQ(program.shown.size(), 1U);
  EXPECT_EQ(prompts(), 1U);
  replay({Choice::cancel});
  EXPECT_EQ(program.shown.size(), 1U);
  EXPECT_EQ(program.state.printRequested, 0);
  replay({});
  EXPECT_EQ(prompts(), 0U);
  EXPECT_GT(program.shown.size(), 8U);
  EXPECT_EQ(pages(), 3U);
}

TEST_F(PrintingReplay, CancelDuringTheReplayLetsItGoOn) {
  pressPrintDuringBlock(3);
  replay({Choice::cancel});
  EXPECT_EQ(prompts(), 1U);
  EXPECT_EQ(pages(), 0U);
  EXPECT_GT(program.shown.size(), 8U);
}

TEST_F(PrintingReplay, APrintBeforeTheReplayStopsItToo) {
  program.host.dialogs.choices = {Choice::ok};
  program.window.Stampa.press();
  replay({Choice::cancel});
  EXPECT_EQ(program.shown.size(), 1U);
  EXPECT_EQ(prompts(), 1U);
}

}  // namespace
}  // namespace korvinel
