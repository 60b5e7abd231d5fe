#include "recording_tool/edf_annotations.h"

#include <algorithm>
#include <cmath>
#include <regex>

#include "eeg/block.h"
#include "recording_tool/ascii_form.h"

namespace korvinel::tool {
namespace {

constexpr auto continuation = "..";

bool isPlaceholder(const FileHeader& header, int note) {
  return header.noteTimes[note] == 1 && header.noteTexts[note] == "Nota: ";
}

double onsetOf(float block, int blocks) {
  const double onset = (static_cast<double>(block) - 1) * eeg::signalSecondsPerBlock;
  return std::clamp(onset, 0.0, static_cast<double>(blocks * eeg::signalSecondsPerBlock));
}

/// Control characters separate the parts of an annotation.
std::string withoutControls(std::string text) {
  const auto isControl = [](char c) { return (c >= 0 && c < ' ') || c == 0x7F; };
  std::replace_if(text.begin(), text.end(), isControl, ' ');
  return text;
}

void addInPieces(std::vector<Annotation>& all, double onset, const std::string& text) {
  std::string rest = text.empty() ? "Nota" : withoutControls(text);
  while (!rest.empty()) {
    const std::string piece = firstPiece(rest, longestAnnotation);
    all.push_back({onset, piece});
    rest.erase(0, piece.size());
    if (!rest.empty()) rest.insert(0, continuation);
  }
}

bool tellsTimeOfBlock(const std::string& text) {
  static const std::regex form(R"(block \d+ at \d+ s)");
  return std::regex_match(text, form);
}

}  // namespace

std::vector<Annotation> annotationsOf(const FileHeader& header, int blocks) {
  std::vector<Annotation> all;
  for (int block = 1; block <= blocks; ++block)
    all.push_back(
        {static_cast<double>((block - 1) * eeg::signalSecondsPerBlock),
         "block " + std::to_string(block) + " at " + std::to_string((block - 1) * eeg::secondsPerBlock) + " s"});
  for (int note = 1; note <= header.noteCount; ++note)
    if (!isPlaceholder(header, note)) addInPieces(all, onsetOf(header.noteTimes[note], blocks), header.noteTexts[note]);
  std::stable_sort(all.begin(), all.end(), [](const auto& a, const auto& b) { return a.onset < b.onset; });
  return all;
}

std::vector<Note> notesFrom(const std::vector<Annotation>& annotations) {
  std::vector<Note> notes;
  double lastOnset = -1;
  for (const auto& [onset, text] : annotations) {
    if (text.empty() || tellsTimeOfBlock(text)) continue;
    if (onset == lastOnset && text.starts_with(continuation)) {
      notes.back().text += text.substr(2);
      continue;
    }
    const double block = std::floor(std::clamp(onset, 0.0, 1e6) / eeg::signalSecondsPerBlock) + 1;
    notes.push_back({std::max(static_cast<int>(block), 2), text});
    lastOnset = onset;
  }
  return notes;
}

}  // namespace korvinel::tool
