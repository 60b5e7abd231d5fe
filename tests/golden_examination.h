#pragma once

#include "golden_reference.h"
#include "headless_program.h"
#include "values/number_text.h"

namespace korvinel::golden {

/// A program set up for a live reference examination, with the expected values of its record after each step.
class Examination {
 public:
  explicit Examination(const std::string& name) : run_(reference(name + ".json")) {
    std::string factors;
    for (const Json& factor : input("factors")) factors += shortestDecimal(factor.get<double>()) + "\r\n";
    program.host.files.content["C:\\QUARVEL5\\Factors.val"] = factors;
  }

  /// Must be called after start-up, which sets the defaults.
  void takeSettings() {
    program.state.artefactThreshold = input("threshold").get<int>();
    program.window.ocularCheck.setChecked(input("ocular").get<bool>());
  }

  [[nodiscard]] const Json& input(const char* name) const { return run_["input"][name]; }
  [[nodiscard]] const Json& expected(const char* name) const { return run_["expected"][name]; }
  [[nodiscard]] std::size_t blocksToRead() const { return input("blocks_hex").size(); }
  /// The instrument's bytes for read number `read`, from 0.
  [[nodiscard]] std::string bytes(std::size_t read) const {
    return bytesOfHex(input("blocks_hex")[read].get<std::string>());
  }
  /// The expected values of the current accepted block.
  [[nodiscard]] const Json& ofBlock(const char* name) const {
    return expected(name)[static_cast<std::size_t>(static_cast<int>(program.state.blockCount)) - 1];
  }

  void expectSmoothed(std::size_t read) const {
    EXPECT_EQ(program.state.artefactFlag == 0, expected("accepted")[read].get<bool>()) << "block read " << read + 1;
    expectRows(program.state.sampleBlock, expected("smoothed")[read], "smoothed " + std::to_string(read + 1));
  }
  /// Compares the current block; `stage`: "corrected", "screened" or "filtered".
  void expectSamples(const char* stage) const { expectRows(program.state.sampleBlock, ofBlock(stage), at(stage)); }

  void expectSpectra() const {
    const MainState& state = program.state;
    expectRows(state.shapeSpectrum, ofBlock("shapeSpectrum"), at("shapeSpectrum"));
    EXPECT_EQ(state.blockDeviation.count(), ofBlock("blockDeviation").get<std::int64_t>()) << at("blockDeviation");
    expectRow(state.mainsDisturbance, ofBlock("mainsDisturbance"), at("mainsDisturbance"));
    expectRows(program.shared.spectrumHistory[state.blockCount], ofBlock("spectrumHistory"), at("spectrumHistory"));
  }
  void expectCoherence() const {
    expectRows(program.shared.coherenceSpectrumHistory[program.state.blockCount], ofBlock("coherenceSpectrumHistory"),
               at("coherenceSpectrumHistory"));
  }
  void expectNumbers() const {
    const Json& peaks = ofBlock("bandPeaks");
    expectRow(program.state.deltaPeak, peaks["delta"], at("delta"));
    expectRow(program.state.thetaPeak, peaks["theta"], at("theta"));
    expectRow(program.state.alfaPeak, peaks["alfa"], at("alfa"));
    expectRow(program.state.betaPeak, peaks["beta"], at("beta"));
  }
  void expectWholeRun() const {
    EXPECT_EQ(program.state.blockCount, expected("blockCount").get<int>());
    expectRows(program.state.runningMeanSpectrum, expected("runningMeanSpectrum"), "runningMeanSpectrum");
    expectRows(program.state.meanCoherence, expected("meanCoherence"), "meanCoherence");
    expectRows(program.shared.coherenceHistory, expected("coherenceHistory"), "coherenceHistory");
  }

  HeadlessProgram program;

 private:
  [[nodiscard]] std::string at(const char* name) const {
    return std::string(name) + " of block " + std::to_string(program.state.blockCount);
  }

  Json run_;
};

}  // namespace korvinel::golden
