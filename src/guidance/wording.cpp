#include "guidance/wording.h"

#include <algorithm>

#include "eeg/block.h"

namespace korvinel::guidance {

std::string minutesOf(int blocks) {
  const int seconds = blocks * eeg::secondsPerBlock;
  const std::string rest = std::to_string(seconds % 60);
  return std::to_string(seconds / 60) + (rest.size() == 1 ? ":0" : ":") + rest;
}

std::string blocks(int count) { return std::to_string(count) + (count == 1 ? " blocco" : " blocchi"); }

std::string notes(int count) {
  if (count == 0) return "nessuna nota";
  return std::to_string(count) + (count == 1 ? " nota" : " note");
}

std::string oneLine(std::string text) {
  std::replace(text.begin(), text.end(), '\r', ' ');
  return text;
}

}  // namespace korvinel::guidance
