#pragma once

#include <string>

#include "recording/file_header.h"

namespace korvinel {

struct ByteSource;
struct MainState;

/// A side file beside the temporary file holds what the blocks do not: the subject, the name of the data file, and the
/// notes. It is only ever appended to; a later line replaces an earlier one.

/// "...\Tempor1.XXX" -> "...\Tempor1.NOT": the side file of a temporary file of any name.
[[nodiscard]] std::string sidePathOf(const std::string& temporaryFile);

/// The readable part of a side file; texts in UTF-8.
struct SideFile {
  std::string temporarySubject, temporaryDate;  ///< as in the header line of its temporary file
  bool holdsNames = false;                      ///< whether the next three are known
  std::string subject, date, dataFileName;
  int noteCount = 0;                          ///< 0..60
  Bounded<float, mostNotes> noteTimes;        ///< [1..60], number of a block
  Bounded<std::string, mostNotes> noteTexts;  ///< [1..60]
  int notesMissing = 0;                       ///< notes begun that cannot be read any more
  int damagedLines = 0;
};

/// Reads all complete lines; the others are counted. A RuntimeError only if the source itself cannot be read.
[[nodiscard]] SideFile readSideFile(ByteSource& source);

/// Creates the side file of a recording whose temporary file has just been created. Never a fault.
void beginSideFile(MainState& state);

/// Appends what the side file at `path` does not hold yet, and forces it onto the disk. Returns whether it holds
/// everything.
bool completeSideFile(MainState& state, const std::string& path);

/// Whether the side file is known to hold the current names and notes.
[[nodiscard]] bool sideFileIsComplete(const MainState& state);

}  // namespace korvinel
