#include "recording/recovery.h"

#include <vector>

#include "platform/files.h"
#include "platform/skip_on_fault.h"
#include "recording/channel_record.h"
#include "recording/record_line.h"
#include "recording/side_file.h"
#include "recording/temporary_reader.h"
#include "values/code_page.h"

namespace korvinel {
namespace {

/// Damaged blocks followed by an intact one are kept in place, up to this many, more than an examination has.
constexpr std::size_t mostDamagedBytes = 200 * static_cast<std::size_t>(blockBytes);

constexpr std::string_view sideEnding = ".NOT";

std::string stemOf(const std::string& sidePath) { return sidePath.substr(0, sidePath.size() - sideEnding.size()); }

bool belongsTo(platform::Files& files, const std::string& sidePath, const TemporaryReader& temporary) {
  SideFile side;
  const bool read = platform::skipOnFault([&] { side = readSideFile(*files.openForReading(sidePath)); });
  return read && belongsTogether(side, temporary.subject(), temporary.date());
}

/// "Tempor1 2026-11-21 10.00.00.NOT" without its temporary file, beside "Tempor1.XXX".
std::vector<std::string> separatedSideFiles(platform::Files& files, const std::string& ownSide) {
  const std::size_t name = ownSide.find_last_of("/\\") + 1;
  const std::string folder = ownSide.substr(0, name);
  const std::string begin = upperCase(stemOf(ownSide).substr(name)) + " ";
  std::vector<std::string> found;
  for (const std::string& listed : files.list(folder, std::string(sideEnding)))
    if (upperCase(listed).starts_with(begin) && !files.exists(stemOf(folder + listed) + ".XXX"))
      found.push_back(folder + listed);
  return found;
}

}  // namespace

std::string sideFileOf(platform::Files& files, const std::string& temporaryFile, const TemporaryReader& temporary) {
  std::string own = sidePathOf(temporaryFile);
  if (files.exists(own)) return own;
  std::string only;
  for (const std::string& path : separatedSideFiles(files, own)) {
    if (!belongsTo(files, path, temporary)) continue;
    if (!only.empty()) return "";
    only = path;
  }
  return only;
}

bool belongsTogether(const SideFile& side, const std::string& subject, const std::string& date) {
  if (side.temporaryDate.empty()) return side.holdsNames && side.subject == subject && side.date == date;
  return side.temporarySubject == subject && side.temporaryDate == date;
}

void takeFromSideFile(FileHeader& header, const SideFile& side) {
  header.noteCount = side.noteCount;
  header.noteTimes = side.noteTimes;
  header.noteTexts = side.noteTexts;
  if (!side.holdsNames) return;
  header.subject = side.subject;
  header.date = side.date;
}

std::string headBytes(const FileHeader& header) {
  const bool hasNotes = header.noteCount > 0;
  std::string bytes = headerLine(header.subject, header.date, hasNotes ? header.noteCount : 1);
  if (!hasNotes) bytes += noteLine(1, "Nota: ");
  for (int note = 1; note <= header.noteCount; ++note)
    bytes += noteLine(header.noteTimes[note], header.noteTexts[note]);
  return bytes;
}

CopiedBlocks copyBlocks(TemporaryReader& temporary, const std::function<void(std::string_view)>& write) {
  CopiedBlocks copied{.end = temporary.position()};
  std::string held;
  for (std::string block; held.size() < mostDamagedBytes; held += block) {
    block = temporary.nextBlock();
    if (block.size() < blockBytes) break;
    if (!isSound(block)) continue;
    write(held);
    write(block);
    copied.damaged += static_cast<int>(held.size()) / blockBytes;
    copied.blocks += static_cast<std::int64_t>(held.size()) / blockBytes + 1;
    copied.end = temporary.position();
    held.clear();
    block.clear();
  }
  copied.left = temporary.position() - copied.end;
  return copied;
}

}  // namespace korvinel
