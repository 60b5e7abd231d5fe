#include "recording_tool/info_commands.h"

#include <nlohmann/json.hpp>

#include "eeg/block.h"
#include "recording_tool/fault_text.h"
#include "recording_tool/host_files.h"
#include "recording_tool/inspection.h"
#include "recording_tool/json_text.h"
#include "recording_tool/messages.h"
#include "recording_tool/tool_error.h"
#include "values/number_text.h"

namespace korvinel::tool {
namespace {

using eeg::secondsPerBlock;
constexpr int blocksRead = eeg::mostBlocks;

Inspection inspectFile(const std::string& path) {
  const auto file = openInput(path);
  try {
    return inspect(*file);
  } catch (const RuntimeError& fault) {
    throw ToolError(path, "cannot be read: " + reasonOf(fault) + ", at byte " + std::to_string(file->position()));
  }
}

std::string defectLine(const Defect& defect) { return defect.what + ", at byte " + std::to_string(defect.offset); }

std::string minutes(int seconds) {
  const std::string rest = std::to_string(seconds % 60);
  return std::to_string(seconds / 60) + ":" + (rest.size() < 2 ? "0" : "") + rest;
}

void writeText(const std::string& path, const Inspection& found, std::ostream& out) {
  const FileHeader& header = found.header;
  out << path << "\n  subject  " << header.subject << "\n  date     " << header.date << "\n  version  "
      << header.versionTag << "\n  blocks   " << found.blocks
      << (found.blocks > blocksRead ? " (Korvinel reads the first 199)" : "") << "\n  duration "
      << minutes(found.blocks * secondsPerBlock) << " min\n";
  for (int note = 1; note <= header.noteCount; ++note)
    out << "  note     block " << shortestDecimal(header.noteTimes[note]) << ": " << header.noteTexts[note] << '\n';
  for (const Defect& defect : found.defects) out << "  damage   " << defectLine(defect) << '\n';
}

Json jsonOf(const std::string& path, const Inspection& found) {
  const FileHeader& header = found.header;
  Json defects = Json::array();
  for (const Defect& defect : found.defects) defects.push_back({{"offset", defect.offset}, {"what", defect.what}});
  return {{"file", path},
          {"subject", header.subject},
          {"recordingDate", header.date},
          {"fileVersionTag", header.versionTag},
          {"notes", notesJson(header.noteCount, header.noteTimes, header.noteTexts)},
          {"blocks", found.blocks},
          {"seconds", found.blocks * secondsPerBlock},
          {"defects", defects}};
}

/// Runs `look` for every file; an unreadable file does not stop the rest.
template <typename Look>
int forEach(const std::vector<std::string>& files, Look&& look) {
  int code = done;
  for (const std::string& path : files) {
    try {
      look(path, inspectFile(path), code);
    } catch (const ToolError& error) {
      tellError(error);
      code = failed;
    }
  }
  return code;
}

}  // namespace

int showInfo(const std::vector<std::string>& files, bool json, std::ostream& out) {
  Json all = Json::array();
  const int code = forEach(files, [&](const std::string& path, const Inspection& found, int&) {
    if (json)
      all.push_back(jsonOf(path, found));
    else
      writeText(path, found, out);
  });
  if (json) out << textOf(all);
  return code;
}

int checkFiles(const std::vector<std::string>& files, std::ostream& out) {
  return forEach(files, [&](const std::string& path, const Inspection& found, int& code) {
    for (const Defect& defect : found.defects) out << path << ": " << defectLine(defect) << '\n';
    if (!found.defects.empty()) code = failed;
  });
}

}  // namespace korvinel::tool
