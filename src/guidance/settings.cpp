#include "guidance/settings.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "values/code_page.h"

namespace korvinel::guidance {
namespace {

constexpr std::string_view title = "# Impostazioni di Korvinel; si possono modificare quando il programma è chiuso.";
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

bool readFlag(std::string_view text, bool& flag) {
  flag = text == "sì" || text == "si";
  return flag || text == "no";
}

std::string flagText(bool flag) { return flag ? "sì" : "no"; }

/// The text up to the separator, which is removed with it from the front of `rest`.
std::string_view takePart(std::string_view& rest, char separator) {
  const std::string_view part = rest.substr(0, rest.find(separator));
  rest.remove_prefix(std::min(part.size() + 1, rest.size()));
  return part;
}

std::string_view withoutBlanks(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

bool readNumber(std::string_view text, int least, int& number) {
  constexpr int most = 32'767;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && end == text.data() + text.size() && number >= least && number <= most;
}

/// "x,y,width,height", and ",massima" if it fills the screen.
bool readPlace(std::string_view text, std::optional<WindowPlace>& place) {
  constexpr int leftmost = -32'768;
  WindowPlace read;
  const bool sound = readNumber(takePart(text, ','), leftmost, read.x) &&
                     readNumber(takePart(text, ','), leftmost, read.y) &&
                     readNumber(takePart(text, ','), 1, read.width) && readNumber(takePart(text, ','), 1, read.height);
  read.maximised = text == "massima";
  if (!sound || (!read.maximised && !text.empty())) return false;
  place = read;
  return true;
}

std::string placeText(const std::optional<WindowPlace>& place) {
  if (!place) return "";
  return std::to_string(place->x) + "," + std::to_string(place->y) + "," + std::to_string(place->width) + "," +
         std::to_string(place->height) + (place->maximised ? ",massima" : "");
}

bool readNotes(std::string_view text, std::vector<std::string>& notes) {
  notes.clear();
  while (!text.empty())
    if (const std::string_view note = withoutBlanks(takePart(text, ';')); !note.empty()) notes.emplace_back(note);
  return true;
}

std::string notesText(const std::vector<std::string>& notes) {
  std::string text;
  for (const std::string& note : notes) text += (text.empty() ? "" : "; ") + note;
  return text;
}

struct Entry {
  std::string_view key;
  bool (*read)(Settings& settings, std::string_view text);  ///< false: an impossible value
  std::string (*text)(const Settings& settings);
};

constexpr std::array<Entry, 5> entries = {{
    {"finestra-principale", [](Settings& to, std::string_view text) { return readPlace(text, to.mainWindow); },
     [](const Settings& from) { return placeText(from.mainWindow); }},
    {"finestra-rapporto", [](Settings& to, std::string_view text) { return readPlace(text, to.reportWindow); },
     [](const Settings& from) { return placeText(from.reportWindow); }},
    {"suoni", [](Settings& to, std::string_view text) { return readFlag(text, to.sounds); },
     [](const Settings& from) { return flagText(from.sounds); }},
    {"note-rapide", [](Settings& to, std::string_view text) { return readNotes(text, to.quickNotes); },
     [](const Settings& from) { return notesText(from.quickNotes); }},
    {"prima-pagina-vista", [](Settings& to, std::string_view text) { return readFlag(text, to.firstPageDismissed); },
     [](const Settings& from) { return flagText(from.firstPageDismissed); }},
}};

/// None of a first start's windows has been moved.
bool isUnmovedWindow(const Entry& entry, std::string_view value) {
  return entry.key.starts_with("finestra") && value.empty();
}

bool readLine(Settings& settings, std::string_view line) {
  if (line == title || withoutBlanks(line).empty()) return true;
  std::string_view value = line;
  const std::string_view key = withoutBlanks(takePart(value, '='));
  value = withoutBlanks(value);
  const auto* const entry = std::find_if(entries.begin(), entries.end(), [&](auto& each) { return each.key == key; });
  if (entry != entries.end()) return isUnmovedWindow(*entry, value) || entry->read(settings, value);
  settings.otherLines.emplace_back(line);
  return line.starts_with('#') || (!key.empty() && line.find('=') != std::string_view::npos);
}

}  // namespace

std::optional<Settings> parseSettings(std::string_view bytes) {
  if (bytes.starts_with(byteOrderMark)) bytes.remove_prefix(byteOrderMark.size());
  if (!isUtf8(bytes) || bytes.find('\0') != std::string_view::npos) return std::nullopt;
  Settings settings;
  while (!bytes.empty()) {
    std::string_view line = takePart(bytes, '\n');
    if (line.ends_with('\r')) line.remove_suffix(1);
    if (!readLine(settings, line)) return std::nullopt;
  }
  return settings;
}

std::string settingsText(const Settings& settings) {
  std::string text = std::string(title) + "\n";
  for (const Entry& entry : entries) text += std::string(entry.key) + "=" + entry.text(settings) + "\n";
  for (const std::string& line : settings.otherLines) text += line + "\n";
  return text;
}

}  // namespace korvinel::guidance
