#include "golden_examination.h"
#include "recordings.h"

namespace korvinel {
namespace {

/// A whole reference examination: Start, "Registra", turn after turn on the timers, Stop. The turn in which "Registra"
/// is pressed reads a flat block, the first one in the file; then the count restarts.
class ReferenceExamination : public testing::TestWithParam<const char*> {
 protected:
  void SetUp() override {
    program_.startAcquisition(fileName_, examination_.input("subject").get<std::string>());
    examination_.takeSettings();
    program_.host.time.onStep = [this] { giveOneBlockToEachTurn(); };
    program_.window.Registra.press();
    program_.host.time.runUntil([&] { return state_.recordingArmed == 0; });
    program_.window.firstTrace.onChanged = [this] { firstTraceChanged(); };
    program_.window.secondTrace.onChanged = [this] { secondTraceChanged(); };
  }

  /// Delivers one block per turn: in the reference the instrument sends the next block at every start.
  void giveOneBlockToEachTurn() {
    if (state_.turnRunning == 0) given_ = compared_ = false;
    if (state_.turnRunning == 0 || given_) return;
    given_ = true;
    if (state_.recordingArmed == 1 || next_ == examination_.blocksToRead())
      return program_.host.serialPort.deliver(std::string(1024, '\x80'));
    program_.host.serialPort.deliver(examination_.bytes(next_++));
  }

  /// The first trace shows the smoothed block, whether it was accepted or rejected.
  void firstTraceChanged() {
    if (state_.turnRunning == 0 || state_.stopRequested == 1 || compared_) return;
    compared_ = true;
    examination_.expectSmoothed(next_ - 1);
  }

  /// The names are printed after the corrected traces.
  void secondTraceChanged() {
    if (program_.window.secondTrace.marks().empty() || program_.window.secondTrace.marks().back().text.empty()) return;
    examination_.expectSamples("screened");
    ++screened_;
  }

  void expectTurn() {
    examination_.expectSpectra();
    examination_.expectSamples("filtered");
    examination_.expectCoherence();
    examination_.expectNumbers();
  }

  void writeNotes() {
    for (const golden::Json& note : examination_.input("notes")) {
      if (note[0].get<int>() != state_.blockCount) continue;
      program_.window.Annotax.press();
      program_.window.noteBox.type(note[1].get<std::string>());
      program_.window.noteBox.pressKey(13);
    }
  }

  /// The reference file, with the block of the first turn before the others.
  std::string expectedFile() const {
    std::string file = golden::bytesOfHex(examination_.expected("qvd_hex").get<std::string>());
    return file.insert(file.size() - 1036 * static_cast<std::size_t>(screened_), recordings::block(128));
  }

  const std::string fileName_ = "esame";
  golden::Examination examination_{GetParam()};
  HeadlessProgram& program_ = examination_.program;
  MainState& state_ = program_.state;
  std::size_t next_ = 0;
  int screened_ = 0;
  bool given_ = false, compared_ = false;
};

TEST_P(ReferenceExamination, EveryTurnAndTheFileAgree) {
  const int blocks = examination_.expected("blockCount").get<int>();
  for (int block = 1; block <= blocks; ++block) {
    program_.acquireBlocks(1);
    ASSERT_EQ(state_.blockCount, block);
    expectTurn();
    if (HasFatalFailure()) return;
    writeNotes();
  }
  examination_.expectWholeRun();
  EXPECT_EQ(screened_, blocks);
  EXPECT_EQ(next_, examination_.blocksToRead());
  program_.window.Stopd1.press();
  program_.host.time.runUntil([&] { return state_.intervalSelectable == 1; });
  EXPECT_TRUE(program_.host.files.content[recordings::folder + fileName_ + ".QVD"] == expectedFile());
  EXPECT_TRUE(program_.host.faults.empty());
}

INSTANTIATE_TEST_SUITE_P(Examinations, ReferenceExamination, testing::Values("eeg", "ocular", "threshold", "shapes"),
                         [](const auto& run) { return std::string(run.param); });

}  // namespace
}  // namespace korvinel
