#pragma once

#include <cmath>
#include <string>
#include <utility>
#include <vector>

namespace korvinel {

/// Data files for tests, composed by hand so that they do not depend on the program's own writer.
namespace recordings {

inline const std::string folder = "C:\\QUARVEL5\\DATAFILE\\";
inline const std::string temporary = folder + "Tempor1.XXX";

/// One channel record with every sample at `value`.
inline std::string channelRecord(int value) { return std::string(256, static_cast<char>(value)) + "-\r\n"; }

/// A block whose channels 1..4 are flat at `value`.
inline std::string block(int value) {
  std::string bytes;
  for (int channel = 1; channel <= 4; ++channel) bytes += channelRecord(value);
  return bytes;
}

using Notes = std::vector<std::pair<int, std::string>>;

inline std::string header(const Notes& notes = {{1, "Nota: "}}, const std::string& tag = "V3") {
  std::string bytes = "\"Rossi\",\"21/11/2026 " + tag + "\",\"4canali\"," + std::to_string(notes.size()) + "\r\n";
  for (const auto& [time, text] : notes) bytes += std::to_string(time) + ",\"" + text + "\"\r\n";
  return bytes;
}

/// The sample value of block n (1 or more): different from its neighbours', and never a byte that files avoid.
inline int levelOf(int block) { return 100 + block % 100; }

/// A block of `signal(channel, sample)`, channels 1..4 and samples 1..256, each rounded to a byte.
template <typename Signal>
std::string signalBlock(Signal&& signal) {
  std::string bytes;
  for (int channel = 1; channel <= 4; ++channel) {
    for (int s = 1; s <= 256; ++s) bytes += static_cast<char>(std::lround(signal(channel, s)));
    bytes += "-\r\n";
  }
  return bytes;
}

/// A whole file of `blocks` flat blocks.
inline std::string file(int blocks, const Notes& notes = {{1, "Nota: "}}) {
  std::string bytes = header(notes);
  for (int n = 1; n <= blocks; ++n) bytes += block(levelOf(n));
  return bytes;
}

}  // namespace recordings
}  // namespace korvinel
