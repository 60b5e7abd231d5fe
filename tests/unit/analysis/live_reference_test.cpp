#include "golden_reference.h"
#include "headless_program.h"
#include "values/number_text.h"

namespace korvinel {
namespace {

using golden::expectRow;
using golden::expectRows;
using golden::Json;

/// One of the reference examinations, driven block by block through the operations of a turn.
class LiveReference : public testing::TestWithParam<const char*> {
 protected:
  void SetUp() override {
    run_ = golden::reference(std::string(GetParam()) + ".json");
    std::string factors;
    for (const Json& factor : run_["input"]["factors"]) factors += shortestDecimal(factor.get<double>()) + "\r\n";
    program_.host.files.content["C:\\QUARVEL5\\Factors.val"] = factors;
    state_.startUp();
    state_.artefactThreshold = run_["input"]["threshold"].get<int>();
    program_.window.ocularCheck.setChecked(run_["input"]["ocular"].get<bool>());
    program_.host.serialPort.setReceiveBuffer(1600);
    program_.host.serialPort.open();
    state_.resetAnalysis();
  }

  /// Reads a block as the turn does; returns whether it was accepted.
  bool read(const std::string& bytes) {
    program_.host.serialPort.deliver(bytes);
    state_.readBlock();
    program_.host.tickTimer.setEnabled(false);
    return state_.artefactFlag == 0;
  }

  const Json& expected(const char* name) const { return run_["expected"][name]; }
  const Json& ofBlock(const char* name) const {
    return expected(name)[static_cast<std::size_t>(static_cast<int>(state_.blockCount)) - 1];
  }
  std::string at(const char* name) const {
    return std::string(name) + " of block " + std::to_string(state_.blockCount);
  }

  void correctAndScreen() {
    state_.removeBaseline();
    expectRows(state_.sampleBlock, ofBlock("corrected"), at("corrected"));
    state_.removeOcularArtefacts();
    expectRows(state_.sampleBlock, ofBlock("screened"), at("screened"));
  }

  /// The recording rounds the block for its bytes and leaves it rounded.
  void takeRecordedSamples() {
    for (int channel = 1; channel <= 4; ++channel)
      for (int s = 1; s <= 256; ++s)
        state_.sampleBlock[channel][s] =
            ofBlock("recorded")[static_cast<std::size_t>(channel) - 1][static_cast<std::size_t>(s) - 1].get<float>();
  }

  void analyse() {
    state_.analyseBlockSpectra();
    expectRows(state_.shapeSpectrum, ofBlock("shapeSpectrum"), at("shapeSpectrum"));
    EXPECT_EQ(state_.blockDeviation.count(), ofBlock("blockDeviation").get<std::int64_t>()) << at("blockDeviation");
    expectRow(state_.mainsDisturbance, ofBlock("mainsDisturbance"), at("mainsDisturbance"));
    expectRows(program_.shared.spectrumHistory[state_.blockCount], ofBlock("spectrumHistory"), at("spectrumHistory"));
    state_.lowPassBlock();
    expectRows(state_.sampleBlock, ofBlock("filtered"), at("filtered"));
    state_.computeBlockCorrelation();
    state_.computeCoherence();
    expectRows(program_.shared.coherenceSpectrumHistory[state_.blockCount], ofBlock("coherenceSpectrumHistory"),
               at("coherenceSpectrumHistory"));
  }

  void showNumbers() {
    state_.showBandPeaks();
    const Json& peaks = ofBlock("bandPeaks");
    expectRow(state_.deltaPeak, peaks["delta"], at("delta"));
    expectRow(state_.thetaPeak, peaks["theta"], at("theta"));
    expectRow(state_.alfaPeak, peaks["alfa"], at("alfa"));
    expectRow(state_.betaPeak, peaks["beta"], at("beta"));
  }

  void expectWholeRun() {
    EXPECT_EQ(state_.blockCount, expected("blockCount").get<int>());
    expectRows(state_.runningMeanSpectrum, expected("runningMeanSpectrum"), "runningMeanSpectrum");
    expectRows(state_.meanCoherence, expected("meanCoherence"), "meanCoherence");
    expectRows(program_.shared.coherenceHistory, expected("coherenceHistory"), "coherenceHistory");
  }

  HeadlessProgram program_;
  MainState& state_ = program_.state;
  Json run_;
};

TEST_P(LiveReference, EveryArrayOfEveryBlockAgrees) {
  std::size_t blocksRead = 0;
  for (const Json& hex : run_["input"]["blocks_hex"]) {
    const bool accepted = read(golden::bytesOfHex(hex.get<std::string>()));
    ASSERT_EQ(accepted, expected("accepted")[blocksRead].get<bool>()) << "block read " << blocksRead + 1;
    expectRows(state_.sampleBlock, expected("smoothed")[blocksRead], "smoothed " + std::to_string(blocksRead + 1));
    ++blocksRead;
    if (!accepted) continue;
    state_.blockCount += 1;
    correctAndScreen();
    takeRecordedSamples();
    analyse();
    showNumbers();
    if (HasFatalFailure()) return;
  }
  expectWholeRun();
}

INSTANTIATE_TEST_SUITE_P(Examinations, LiveReference, testing::Values("eeg", "ocular", "threshold", "shapes"),
                         [](const auto& run) { return std::string(run.param); });

}  // namespace
}  // namespace korvinel
