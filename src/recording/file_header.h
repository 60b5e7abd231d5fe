#pragma once

#include <string>

#include "values/bounded.h"

namespace korvinel {

struct ByteSource;

constexpr int mostNotes = 60;

/// The part of a data file before its samples; texts in UTF-8.
struct FileHeader {
  std::string subject;
  std::string dateField;                      ///< "dd/mm/yyyy V3"
  std::string versionTag;                     ///< its last two characters
  std::string date;                           ///< its first eleven: the date and a blank
  int notesInFile = 0;                        ///< number of note lines according to the file, 0..32767
  int noteCount = 0;                          ///< notes kept, at most 60
  Bounded<float, mostNotes> noteTimes;        ///< [1..60], number of a block
  Bounded<std::string, mostNotes> noteTexts;  ///< [1..60]
};

/// Reads the header line and all note lines, so that the source is positioned at the first sample. A negative number of
/// notes counts as none. The type tag is ignored. A note's time beyond the range of a 32-bit float becomes 0, which is
/// no block. A RuntimeError if a field is missing or not a number.
[[nodiscard]] FileHeader readHeader(ByteSource& source);

}  // namespace korvinel
