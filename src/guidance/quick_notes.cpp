#include "guidance/quick_notes.h"

#include <algorithm>
#include <sstream>

namespace korvinel::guidance {
namespace {

constexpr std::size_t most = 6;  // there is room for no more buttons

std::string withoutBlanksAround(const std::string& text) {
  const std::size_t first = text.find_first_not_of(" \t\r\n");
  if (first == std::string::npos) return "";
  return text.substr(first, text.find_last_not_of(" \t\r\n") + 1 - first);
}

}  // namespace

std::vector<std::string> usualQuickNotes() { return {"occhi chiusi", "occhi aperti", "movimento", "tosse"}; }

std::string quickNotesText(const std::vector<std::string>& notes) {
  std::string text;
  for (const std::string& note : notes) text += (text.empty() ? "" : ", ") + note;
  return text;
}

std::vector<std::string> quickNotesFrom(const std::string& text) {
  std::vector<std::string> notes;
  std::string list = text;
  std::replace(list.begin(), list.end(), ';', ',');
  std::istringstream stream(list);
  for (std::string part; std::getline(stream, part, ',');) {
    const std::string note = withoutBlanksAround(part);
    const bool isNew = std::find(notes.begin(), notes.end(), note) == notes.end();
    if (!note.empty() && isNew && notes.size() < most) notes.push_back(note);
  }
  return notes.empty() ? usualQuickNotes() : notes;
}

}  // namespace korvinel::guidance
