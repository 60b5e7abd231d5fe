#pragma once

#include <string>

#include "recording/file_header.h"
#include "values/field_reader.h"

namespace korvinel {

struct MainState;

/// What a recording's blocks do not tell lies in a side file beside its temporary file: whose they are, what the data
/// file is to be called, and the notes. It is only ever appended to; a later line takes the place of a former one.

/// "...\Tempor1.XXX" -> "...\Tempor1.NOT": the side file of a temporary file, whatever that is called.
[[nodiscard]] std::string sidePathOf(const std::string& temporaryFile);

/// A side file as far as it can be read; texts in UTF-8.
struct SideFile {
  std::string temporarySubject, temporaryDate;  ///< as in the header line of the temporary file that it belongs to
  bool holdsNames = false;                      ///< whether the next three are known
  std::string subject, date, dataFileName;
  int noteCount = 0;                          ///< 0..60
  Bounded<float, mostNotes> noteTimes;        ///< [1..60], number of a block
  Bounded<std::string, mostNotes> noteTexts;  ///< [1..60]
  int notesMissing = 0;                       ///< notes that were begun but cannot be read any more
  int damagedLines = 0;
};

/// Reads all lines that are whole; the others are counted. A RuntimeError only where the source itself cannot be read.
[[nodiscard]] SideFile readSideFile(ByteSource& source);

/// Begins the side file of a recording whose temporary file has just been created. Never a fault.
void beginSideFile(MainState& state);

/// Appends what the side file at `path` does not hold yet, and puts it on the disk. Returns whether it holds all.
bool completeSideFile(MainState& state, const std::string& path);

/// Whether the side file is known to hold names and notes as they stand.
[[nodiscard]] bool sideFileIsComplete(const MainState& state);

}  // namespace korvinel
