#include <array>
#include <optional>
#include <utility>

#include "recording/side_file.h"
#include "recording/side_file_line.h"
#include "values/code_page.h"
#include "values/field_reader.h"
#include "values/runtime_error.h"

namespace korvinel {
namespace {

constexpr std::size_t longestLine = 3 * longestField;
constexpr int mostDamagedLines = 100;

/// The next line with its line end, or part of one that is too long.
std::string takeLine(ByteSource& source) {
  std::string line;
  while (source.peek() != ByteSource::end && line.size() < longestLine && !line.ends_with('\n'))
    line += static_cast<char>(static_cast<unsigned char>(source.take()));
  return line;
}

/// The fields of a complete line.
std::optional<std::string> checkedFields(const std::string& line) {
  const std::size_t comma = line.rfind(',');
  if (comma == std::string::npos) return std::nullopt;
  std::string fields = line.substr(0, comma);
  if (checkedLine(fields) != line) return std::nullopt;
  return fields;
}

class Reader {
 public:
  SideFile read(ByteSource& source) {
    // A file with this much damage is not a side file, however long it is.
    while (source.peek() != ByteSource::end && side_.damagedLines < mostDamagedLines) readLine(takeLine(source));
    closeGaps();
    return std::move(side_);
  }

 private:
  void readLine(const std::string& line) {
    if (line == "\r\n") return;
    const auto fields = checkedFields(line);
    if (!fields) {
      ++side_.damagedLines;
      return;
    }
    try {
      TextSource source(*fields);
      take(readField(source), source);
    } catch (const RuntimeError&) {
      ++side_.damagedLines;
    }
  }

  void take(const std::string& kind, ByteSource& source) {
    if (kind == sideFileOwner) takeTexts(source, {&side_.temporarySubject, &side_.temporaryDate});
    if (kind == sideFileNames) {
      takeTexts(source, {&side_.subject, &side_.date, &side_.dataFileName});
      side_.holdsNames = true;
    }
    if (kind == sideFileNoteCount) takeNoteCount(indexFrom(source, 0));
    if (kind == sideFileNote) takeNote(source);
  }

  static void takeTexts(ByteSource& source, std::initializer_list<std::string*> texts) {
    for (std::string* text : texts) *text = utf8FromCodePage(readField(source));
  }

  static int indexFrom(ByteSource& source, int least) {
    const double number = readNumber(source);
    if (!(number >= least && number <= mostNotes)) throwSubscript();
    return static_cast<int>(number);
  }

  /// The count decreases when the examination restarts: later notes are void.
  void takeNoteCount(int count) {
    for (int note = count + 1; note <= mostNotes; ++note) known_[static_cast<std::size_t>(note)] = false;
    side_.noteCount = count;
  }

  void takeNote(ByteSource& source) {
    const int note = indexFrom(source, 1);
    const float time = readFloat(source);
    side_.noteTexts[note] = utf8FromCodePage(readField(source));
    side_.noteTimes[note] = time;
    known_[static_cast<std::size_t>(note)] = true;
    if (note > side_.noteCount) side_.noteCount = note;  // the line with the count is damaged
  }

  void closeGaps() {
    int kept = 0;
    for (int note = 1; note <= side_.noteCount; ++note) {
      if (!known_[static_cast<std::size_t>(note)]) continue;
      ++kept;
      side_.noteTimes[kept] = side_.noteTimes[note];
      side_.noteTexts[kept] = side_.noteTexts[note];
    }
    side_.notesMissing = side_.noteCount - kept;
    side_.noteCount = kept;
  }

  SideFile side_;
  std::array<bool, mostNotes + 1> known_{};
};

}  // namespace

std::string sidePathOf(const std::string& temporaryFile) {
  const std::size_t name = temporaryFile.find_last_of("/\\") + 1;
  const std::size_t dot = temporaryFile.rfind('.');
  return (dot == std::string::npos || dot <= name ? temporaryFile : temporaryFile.substr(0, dot)) + ".NOT";
}

SideFile readSideFile(ByteSource& source) { return Reader().read(source); }

}  // namespace korvinel
