#pragma once

#include "golden_reference.h"
#include "headless_program.h"

namespace korvinel::golden {

/// The samples of a recording: everything after the header line and the note lines that it announces.
inline std::string rawArea(const std::string& file) {
  std::size_t start = file.find("\r\n") + 2;
  const std::string header = file.substr(0, start - 2);
  for (int notes = std::stoi(header.substr(header.rfind(',') + 1)); notes > 0; --notes)
    start = file.find("\r\n", start) + 2;
  return file.substr(start);
}

inline void takeBlock(MainState& state, std::string_view block) {
  constexpr std::size_t channelRecordBytes = 259;  // 256 samples, "-", carriage return, line feed
  for (int channel = 1; channel <= 4; ++channel)
    for (int s = 1; s <= 256; ++s)
      state.sampleBlock[channel][s] = static_cast<unsigned char>(
          block[static_cast<std::size_t>(channel - 1) * channelRecordBytes + static_cast<std::size_t>(s - 1)]);
}

/// Analyses the reference recording `name` block by block as opening a file does, with its own calibration.
inline void analyseRecording(HeadlessProgram& program, const std::string& name) {
  constexpr std::size_t blockBytes = 4 * 259;
  MainState& state = program.state;
  program.host.files.content["C:\\QUARVEL5\\Factors.val"] = fileBytes(name + ".factors.val");
  state.startUp();
  state.openFilePath = "C:\\QUARVEL5\\DATAFILE\\" + name + ".QVD";
  state.resetAnalysis();
  const std::string raw = rawArea(fileBytes(name + ".QVD"));
  ASSERT_GE(raw.size(), blockBytes);
  for (std::size_t start = 0; start + blockBytes <= raw.size(); start += blockBytes) {
    state.blockCount += 1;
    takeBlock(state, std::string_view(raw).substr(start, blockBytes));
    state.computeComplexSpectra();
    state.lowPassBlock();
    state.removeOcularArtefacts();
    state.analyseBlockSpectra();
    state.computeBlockCorrelation();
    state.computeCoherence();
  }
  // The scan counts one block less than the file has.
  program.shared.fileBlockCount = state.blockCount - 1;
}

}  // namespace korvinel::golden
