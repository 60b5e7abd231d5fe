#include "guidance/cues.h"

#include <gmock/gmock.h>

#include "headless_program.h"
#include "signals.h"

namespace korvinel {
namespace {

using guidance::Cue;
using testing::ElementsAre;

/// A whole examination, with the cues asked for four times a second as the window does.
struct CuesOfAnExamination : testing::Test {
  CuesOfAnExamination() {
    program.host.instrument.idleBlock = instrumentBlock([](int, int s) { return 128 + sineAt(s, 20, 20); });
    ask();
  }
  void ask() {
    if (const Cue cue = cues.due(program.state); cue != Cue::none) given.emplace_back(cue, accepted());
    program.host.time.after(0.25, [this] { ask(); });
  }
  int accepted() const { return guidance::acceptedBlocks(program.state); }
  void waitForEnd() {
    program.host.time.runUntil([&] { return program.state.intervalSelectable == 1; }, 700);
    program.host.time.runFor(1);
  }

  HeadlessProgram program;
  guidance::Cues cues;
  std::vector<std::pair<Cue, int>> given;  ///< with the number of accepted blocks
};

TEST_F(CuesOfAnExamination, SevenMinutesAndTheEndAtTheLimit) {
  program.startAcquisition();
  program.window.Registra.press();
  waitForEnd();
  EXPECT_THAT(given, ElementsAre(std::pair(Cue::enoughData, 140), std::pair(Cue::ended, 200)));
}

TEST_F(CuesOfAnExamination, AShortOneHasOnlyItsEndAndASecondOneItsOwn) {
  program.startAcquisition("primo");
  for (const char* next : {"secondo", ""}) {
    given.clear();
    program.acquireBlocks(3);
    program.window.Stopd1.press();
    waitForEnd();
    ASSERT_EQ(given.size(), 1U) << next;
    EXPECT_EQ(given.front().first, Cue::ended);
    program.window.fileNameBox.type(next);
    program.window.Starts1.press();
  }
}

}  // namespace
}  // namespace korvinel
