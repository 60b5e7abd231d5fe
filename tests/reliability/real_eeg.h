#pragma once

#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

/// Recordings of people (tests/data/eeg, or the folder in KORVINEL_EEG, in the same form).
namespace korvinel::real_eeg {

using Channel = std::vector<float>;

struct Recording {
  std::string name;
  std::array<Channel, 4> channels;  ///< sample units, mid level 128
};

inline Recording readRecording(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  const std::string bytes(std::istreambuf_iterator<char>(file), {});
  Recording recording{path.stem().string(), {}};
  for (std::size_t i = 0; i < bytes.size(); ++i)
    recording.channels.at(i % 4).push_back(static_cast<float>(static_cast<unsigned char>(bytes[i])));
  return recording;
}

inline std::vector<Recording> allRecordings() {
  const char* const chosen = std::getenv("KORVINEL_EEG");
  const std::filesystem::path folder = chosen != nullptr ? chosen : KORVINEL_TEST_DATA "/eeg";
  std::vector<std::filesystem::path> paths;
  for (const auto& entry : std::filesystem::directory_iterator(folder))
    if (entry.path().extension() == ".raw") paths.push_back(entry.path());
  std::ranges::sort(paths);
  std::vector<Recording> recordings;
  for (const auto& path : paths) recordings.push_back(readRecording(path));
  return recordings;
}

}  // namespace korvinel::real_eeg
