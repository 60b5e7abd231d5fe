#include "recording/interrupted_file.h"

#include <string_view>

#include "platform/skip_on_fault.h"
#include "recording/recovery.h"
#include "recording/side_file.h"

namespace korvinel {

InterruptedFile::InterruptedFile(platform::Files& files, const std::string& temporaryFile)
    : file_(files.openForReading(temporaryFile)), reader_(*file_) {
  if (!isTemporary()) return;
  header_.subject = reader_.subject();
  header_.date = reader_.date();
  sideFile_ = sideFileOf(files, temporaryFile, reader_);
  if (!sideFile_.empty()) takeSideFile(files);
}

void InterruptedFile::takeSideFile(platform::Files& files) {
  SideFile side;
  const bool read = platform::skipOnFault([&] { side = readSideFile(*files.openForReading(sideFile_)); });
  notesAreDamaged_ = !read || side.damagedLines > 0 || side.notesMissing > 0;
  if (read && belongsTogether(side, header_.subject, header_.date)) {
    takeFromSideFile(header_, side);
    dataFileName_ = side.dataFileName;
  } else {
    sideFile_.clear();
  }
}

std::int64_t InterruptedFile::countBlocks() {
  return copyBlocks(reader_, [](std::string_view) {}).blocks;
}

std::int64_t InterruptedFile::writeTo(platform::OutputFile& file) {
  file.write(headBytes(header_));
  return copyBlocks(reader_, [&](std::string_view bytes) { file.write(bytes); }).blocks;
}

std::int64_t InterruptedFile::compareWith(platform::InputFile& dataFile) {
  bool same = true;
  const auto compare = [&](std::string_view bytes) {
    for (const char byte : bytes) same = same && dataFile.take() == static_cast<unsigned char>(byte);
  };
  compare(headBytes(header_));
  if (!same) return 0;
  const std::int64_t blocks = copyBlocks(reader_, compare).blocks;
  return same && dataFile.atEnd() ? blocks : 0;
}

}  // namespace korvinel
