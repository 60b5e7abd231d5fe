#include "golden_examination.h"

namespace korvinel {
namespace {

/// A reference examination, processed block by block by the operations of a turn, so that a difference is found at the
/// operation that causes it. journeys/reference_examination_test.cpp compares whole turns with the same numbers.
class LiveReference : public testing::TestWithParam<const char*> {
 protected:
  void SetUp() override {
    state_.startUp();
    examination_.takeSettings();
    examination_.program.host.serialPort.setReceiveBuffer(1600);
    examination_.program.host.serialPort.open();
    state_.resetAnalysis();
  }

  /// Reads a block as the turn does; returns whether it was accepted.
  bool read(std::size_t number) {
    examination_.program.host.serialPort.deliver(examination_.bytes(number));
    state_.readBlock();
    examination_.program.host.tickTimer.setEnabled(false);
    examination_.expectSmoothed(number);
    return state_.artefactFlag == 0;
  }

  void correctAndScreen() {
    state_.removeBaseline();
    examination_.expectSamples("corrected");
    state_.removeOcularArtefacts();
    examination_.expectSamples("screened");
  }

  /// Recording rounds the block to bytes and leaves it rounded.
  void takeRecordedSamples() {
    const auto& recorded = examination_.ofBlock("recorded");
    for (int channel = 1; channel <= 4; ++channel)
      for (int s = 1; s <= 256; ++s)
        state_.sampleBlock[channel][s] =
            recorded[static_cast<std::size_t>(channel) - 1][static_cast<std::size_t>(s) - 1].get<float>();
  }

  void analyse() {
    state_.analyseBlockSpectra();
    examination_.expectSpectra();
    state_.lowPassBlock();
    examination_.expectSamples("filtered");
    state_.computeBlockCorrelation();
    state_.computeCoherence();
    examination_.expectCoherence();
    state_.showBandPeaks();
    examination_.expectNumbers();
  }

  golden::Examination examination_{GetParam()};
  MainState& state_ = examination_.program.state;
};

TEST_P(LiveReference, EveryArrayOfEveryBlockAgrees) {
  for (std::size_t number = 0; number < examination_.blocksToRead(); ++number) {
    if (!read(number)) continue;
    state_.blockCount += 1;
    correctAndScreen();
    takeRecordedSamples();
    analyse();
    if (HasFatalFailure()) return;
  }
  examination_.expectWholeRun();
}

INSTANTIATE_TEST_SUITE_P(Examinations, LiveReference, testing::Values("eeg", "ocular", "threshold", "shapes"),
                         [](const auto& run) { return std::string(run.param); });

}  // namespace
}  // namespace korvinel
