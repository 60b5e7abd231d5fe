#include "recording/file_loop.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "opened_file.h"

namespace korvinel {
namespace {

const std::string other = recordings::folder + "altro.QVD";

struct Replaying : FileProgram {
  Replaying() {
    host.files.content[other] = recordings::file(5);
    open();
    shown.clear();
    host.dialogs.shown.clear();
    window.HScroll2.moveTo(20);
  }
  /// Replays the file and does this while its fourth block is on show.
  void replay(const std::function<void()>& act) {
    host.time.when([this] { return window.replayPositionLabel.text() == "4"; }, act);
    window.Displayx.press();
  }
};

TEST(FileCommand, DisplayDuringAReplayReturnsAtOnceAndRunsWhenThatHasEnded) {
  Replaying program;
  program.replay([&] {
    const auto before = program.shown;
    program.window.Displayx.press();
    EXPECT_EQ(program.shown, before);
    EXPECT_EQ(program.state.fileLoopRunning, 1);
  });
  EXPECT_EQ(program.shown.size(), 4U + 6U) << "four blocks, then all behind the slider's";
  EXPECT_EQ(program.state.fileLoopRunning, 0);
}

TEST(FileCommand, ApriFileDuringAReplayAsksForTheFileOnlyWhenThatHasEnded) {
  Replaying program;
  program.host.dialogs.files.push_back(other);
  program.replay([&] {
    program.window.Openx.press();
    EXPECT_TRUE(program.host.dialogs.shown.empty());
  });
  ASSERT_EQ(program.host.dialogs.shown.size(), 1U);
  EXPECT_EQ(program.state.openFilePath, other);
}

TEST(FileCommand, ApriFileInAStoppedScanAsksForTheFileOnlyWhenThatHasEnded) {
  FileProgram program;
  program.host.files.content[other] = recordings::file(5);
  program.host.time.when([&] { return program.state.blockCount == 3; },
                         [&] {
                           program.window.Stopd1.press();
                           program.host.dialogs.files.push_back(other);
                           program.window.Openx.press();
                           EXPECT_EQ(program.host.dialogs.shown.size(), 1U);
                         });
  program.open();
  EXPECT_EQ(program.host.dialogs.shown.size(), 2U);
  EXPECT_EQ(program.state.openFilePath, other);
}

TEST(FileCommand, OfSeveralDuringAReplayTheLastIsDone) {
  for (const bool openingLast : {false, true}) {
    Replaying program;
    program.host.dialogs.files.push_back(other);
    program.replay([&] {
      if (openingLast) program.window.Displayx.press();
      program.window.Openx.press();
      if (!openingLast) program.window.Displayx.press();
    });
    EXPECT_EQ(program.host.dialogs.shown.size(), openingLast ? 1U : 0U);
    EXPECT_EQ(program.state.openFilePath, openingLast ? other : program.path);
  }
}

TEST(FileCommand, AScanThatBreaksOffUnexpectedlyKeepsNothingWaiting) {
  FileProgram program;
  program.window.blockLabel.onChanged = [&] {
    if (program.state.blockCount == 3) throw std::runtime_error("memoria");
  };
  program.open();
  program.window.blockLabel.onChanged = nullptr;
  EXPECT_EQ(program.state.acquisitionRunning, 0);
  program.open();
  EXPECT_EQ(program.shared.fileBlockCount, 9);
}

}  // namespace
}  // namespace korvinel
