#include "recording/side_file.h"

#include <vector>

#include "frame/main_state.h"
#include "frame/program_values.h"
#include "platform/files.h"
#include "platform/platform.h"
#include "platform/skip_on_fault.h"
#include "recording/data_paths.h"
#include "recording/record_line.h"
#include "recording/side_file_line.h"
#include "values/number_text.h"

namespace korvinel {
namespace {

using Lines = std::vector<std::string>;

/// The header line of the temporary file, without its line end.
std::string temporaryHeader(const MainState& state) {
  return state.temporaryContent.substr(0, state.temporaryContent.find("\r\n"));
}

std::string namesFields(const MainState& state) {
  return quotedField(sideFileNames) + "," + quotedField(state.shared.subjectName) + "," +
         quotedField(state.recordingDate) + "," + quotedField(state.shared.dataFileName);
}

std::string noteFields(const MainState& state, int note) {
  return quotedField(sideFileNote) + "," + std::to_string(note) + "," + recordDecimal(state.noteTimes[note]) + "," +
         quotedField(state.noteTexts[note]);
}

/// The placeholder of a recording without notes is not a note: it has the time 1.
int notesOf(const MainState& state) {
  const bool placeholder = state.noteCount == 1 && state.noteTimes[1] == 1;
  return placeholder ? 0 : static_cast<int>(state.noteCount);
}

Lines linesOf(const MainState& state) {
  Lines lines{checkedLine(quotedField(sideFileOwner) + "," + temporaryHeader(state)), checkedLine(namesFields(state)),
              checkedLine(quotedField(sideFileNoteCount) + "," + std::to_string(notesOf(state)))};
  for (int note = 1; note <= notesOf(state); ++note) lines.push_back(checkedLine(noteFields(state, note)));
  return lines;
}

std::string newLines(const Lines& lines, const Lines& written) {
  std::string text;
  for (std::size_t i = 0; i < lines.size(); ++i)
    if (i >= written.size() || lines[i] != written[i]) text += lines[i];
  return text;
}

}  // namespace

void beginSideFile(MainState& state) {
  state.sideFileLines.clear();
  platform::skipOnFault([&] { static_cast<void>(state.host.files.create(sideFilePath)); });
  completeSideFile(state, sideFilePath);
}

bool completeSideFile(MainState& state, const std::string& path) {
  const Lines lines = linesOf(state);
  return platform::skipOnFault([&] {
    if (!state.host.files.exists(path)) state.sideFileLines.clear();
    std::string text = newLines(lines, state.sideFileLines);
    if (text.empty()) return;
    // After a failed write there may be a partial line.
    if (state.sideFileLines.empty()) text.insert(0, "\r\n");
    state.sideFileLines.clear();
    const auto file = state.host.files.openForAppending(path);
    file->write(text);
    file->synchronise();
    state.sideFileLines = lines;
  });
}

bool sideFileIsComplete(const MainState& state) { return state.sideFileLines == linesOf(state); }

void MainState::keepNotesAndNames() {
  if (recordingActive == 1 && assembling == 0 && !temporaryContent.empty()) completeSideFile(*this, sideFilePath);
}

}  // namespace korvinel
