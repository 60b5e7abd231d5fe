#include "recording/file_header.h"

#include <algorithm>

#include "values/code_page.h"
#include "values/field_reader.h"
#include "values/int16.h"
#include "values/runtime_error.h"

namespace korvinel {
namespace {

void splitDateField(FileHeader& header, const std::string& bytes) {
  constexpr std::size_t tagLength = 2;
  constexpr std::size_t dateLength = 11;
  header.dateField = utf8FromCodePage(bytes);
  header.versionTag = utf8FromCodePage(bytes.substr(bytes.size() - std::min(tagLength, bytes.size())));
  header.date = utf8FromCodePage(bytes.substr(0, dateLength));
}

/// 0, which is not a block, if the number is too large: the note's text is kept.
float noteTime(ByteSource& source) {
  try {
    return readFloat(source);
  } catch (const RuntimeError& fault) {
    if (fault.fault != Fault::overflow) throw;
    return 0;
  }
}

/// Notes after the sixtieth are read, so that the samples after them are found, but not kept.
void readNotes(FileHeader& header, ByteSource& source) {
  for (int note = 1; note <= header.notesInFile; ++note) {
    const float time = noteTime(source);
    const std::string text = readField(source);
    if (note > mostNotes) continue;
    header.noteTimes[note] = time;
    header.noteTexts[note] = utf8FromCodePage(text);
  }
}

}  // namespace

FileHeader readHeader(ByteSource& source) {
  FileHeader header;
  header.subject = utf8FromCodePage(readField(source));
  splitDateField(header, readField(source));
  (void)readField(source);  // the type tag
  header.notesInFile = std::max<int>(Int16::nearest(readNumber(source)), 0);
  header.noteCount = std::min(header.notesInFile, mostNotes);
  readNotes(header, source);
  return header;
}

}  // namespace korvinel
