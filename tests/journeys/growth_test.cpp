#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <new>

#include "headless_report.h"
#include "recordings.h"
#include "reliability/campaign.h"

namespace {

std::atomic<long> liveAllocations = 0;

void* counted(std::size_t size) {
  void* memory = std::malloc(size == 0 ? 1 : size);
  if (memory == nullptr) throw std::bad_alloc();
  ++liveAllocations;
  return memory;
}

void uncounted(void* memory) {
  if (memory != nullptr) --liveAllocations;
  std::free(memory);
}

}  // namespace

void* operator new(std::size_t size) { return counted(size); }
void* operator new[](std::size_t size) { return counted(size); }
void operator delete(void* memory) noexcept { uncounted(memory); }
void operator delete[](void* memory) noexcept { uncounted(memory); }
void operator delete(void* memory, std::size_t) noexcept { uncounted(memory); }
void operator delete[](void* memory, std::size_t) noexcept { uncounted(memory); }

/// Opening, replaying and reporting again and again leaks nothing: the numbers of allocations and of marks on the
/// surfaces are the same after the last time as after the first ones.
namespace korvinel {
namespace {

struct Held {
  long allocations;
  std::size_t marks;
};

class Growth : public testing::Test {
 protected:
  Growth() {
    program.state.startUp();
    program.host.files.content[path] = recordings::file(6, {{2, "prima"}, {4, "seconda"}});
  }

  void lookAtTheFile() {
    program.host.dialogs.files.push_back(path);
    program.window.Openx.press();
    program.window.Displayx.press();
    program.window.Analisi.press();
    program.reportWindow.maximumCheck.click();
    program.reportWindow.commentButton.press();
    program.reportWindow.exitButton.press();
    // What the headless platform keeps for tests, and what the real report and comment windows free when they close.
    program.host.dialogs.shown.clear();
    program.host.faults.clear();
    program.host.windows.asked.clear();
    program.reportWindow.ground.clear();
    program.comments.text.clear();
  }

  [[nodiscard]] std::size_t marks() const {
    std::size_t count = 0;
    const MainWindow& w = program.window;
    for (const auto* surface : {&w.firstTrace, &w.secondTrace, &w.messagePanel, &w.coherenceGraph, &w.leftSpectrum,
                                &w.rightSpectrum, &w.frequencyAxis, &w.leftRuler, &w.rightRuler, &w.firstNumbers,
                                &w.secondNumbers, &w.Picture6, &w.axisCaptions})
      count += surface->marks().size();
    return count;
  }

  Held heldAfter(int looks) {
    for (int look = 1; look <= looks; ++look) lookAtTheFile();
    return {liveAllocations, marks()};
  }

  const std::string path = recordings::folder + "esame.QVD";
  HeadlessReport program;
};

TEST_F(Growth, LookingAtAFileAgainAndAgainLeavesNothingBehind) {
  const Held early = heldAfter(10);
  EXPECT_EQ(program.shared.fileBlockCount, 5);
  const Held late = heldAfter(campaign::size(40, 2'000));
  EXPECT_EQ(late.allocations, early.allocations);
  EXPECT_EQ(late.marks, early.marks);
}

}  // namespace
}  // namespace korvinel
