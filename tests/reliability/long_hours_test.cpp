#include <gtest/gtest.h>

#include <map>

#include "campaign.h"
#include "headless_report.h"
#include "process_figures.h"
#include "recordings.h"

/// Examination after examination in one run of the program: nothing grows, and every turn lasts three seconds.
namespace korvinel {
namespace {

struct Figures {
  long kilobytes, descriptors;
  std::size_t marks;
};

class LongHours : public testing::Test {
 protected:
  LongHours() {
    program.state.startUp();
    program.window.subjectBox.type("Rossi");
  }

  /// Records up to the block limit with a note, opens the report and then the file.
  void examine(int number) {
    const std::string name = "esame" + std::to_string(number);
    program.window.fileNameBox.type(name);
    program.window.Starts1.press();
    program.acquireBlocks(1);
    program.window.Registra.press();
    program.acquireBlocks(3);
    program.window.Annotax.press();
    program.window.noteBox.type("nota");
    program.window.noteBox.pressKey(13);
    while (program.state.blockCount < lastBlock - 1) acquireOneBlock();
    program.host.time.runUntil([&] { return program.state.intervalSelectable == 1; });
    program.window.Analisi.press();
    look(name);
    program.host.dialogs.shown.clear();
  }

  void acquireOneBlock() {
    const double begin = program.host.time.seconds();
    program.acquireBlocks(1);
    ++turns[static_cast<int>((program.host.time.seconds() - begin) * 1000 + 0.5)];
  }

  void look(const std::string& name) {
    const std::string path = recordings::folder + name + ".QVD";
    program.host.dialogs.files.push_back(path);
    program.window.Openx.press();
    EXPECT_EQ(program.shared.fileBlockCount, lastBlock);
    program.host.files.content.erase(path);
    program.window.Stopd1.press();
  }

  Figures figures() {
    std::size_t marks = 0;
    for (const platform::Surface* surface :
         {&program.window.firstTrace, &program.window.messagePanel, &program.window.coherenceGraph,
          &program.window.leftSpectrum, &program.window.firstNumbers, &program.window.Picture6,
          &program.window.axisCaptions})
      marks += surface->marks().size();
    return {residentKilobytes(), openDescriptors(), marks};
  }

  static constexpr int lastBlock = 199;
  HeadlessReport program;
  std::map<int, int> turns;  ///< duration of a turn in milliseconds -> how often
};

TEST_F(LongHours, FiftyExaminationsOf199BlocksLeaveTheProgramAsSmallAsTheFirst) {
  const int examinations = campaign::size(3, 50);
  examine(1);
  examine(2);
  const Figures early = figures();
  for (int number = 3; number <= examinations; ++number) examine(number);
  const Figures late = figures();
  std::printf("memory %ld -> %ld kB, descriptors %ld -> %ld, marks %zu -> %zu\n", early.kilobytes, late.kilobytes,
              early.descriptors, late.descriptors, early.marks, late.marks);
  for (const auto& [milliseconds, count] : turns) std::printf("turns of %d ms: %d\n", milliseconds, count);
  EXPECT_LT(late.kilobytes, early.kilobytes + 2048);
  EXPECT_EQ(late.descriptors, early.descriptors);
  EXPECT_EQ(late.marks, early.marks);
  // On the virtual clock computing takes no time: a turn lasts as long as its tick and pause, within the clock's step.
  for (const auto& [milliseconds, count] : turns) EXPECT_NEAR(milliseconds, 3000, 30) << count << " times";
}

}  // namespace
}  // namespace korvinel
