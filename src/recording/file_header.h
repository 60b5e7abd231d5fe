#pragma once

#include <string>

#include "values/bounded.h"
#include "values/field_reader.h"

namespace korvinel {

constexpr int mostNotes = 60;

/// What stands before the samples of a data file; texts in UTF-8.
struct FileHeader {
  std::string subject;
  std::string dateField;                      ///< "dd/mm/yyyy V3"
  std::string versionTag;                     ///< its last two characters
  std::string date;                           ///< its first eleven: the date and a blank
  int notesInFile = 0;                        ///< note lines that the file announces, 0..32767
  int noteCount = 0;                          ///< those that are kept, at most 60
  Bounded<float, mostNotes> noteTimes;        ///< [1..60], number of a block
  Bounded<std::string, mostNotes> noteTexts;  ///< [1..60]
};

/// Reads the header line and all note lines, so that the source stands at the first sample. A negative number of notes
/// counts as none. The type tag is not looked at. A note's time beyond the 32-bit floats becomes 0, no block. A
/// RuntimeError where a field is missing or no number.
[[nodiscard]] FileHeader readHeader(ByteSource& source);

}  // namespace korvinel
