#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "values/runtime_error.h"

namespace korvinel {

/// An examination that a crash or a full disk has left in a temporary file of the data folder.
struct Interrupted {
  std::string temporaryFile;  ///< path
  std::string sideFile;       ///< path; "" = none that belongs to it
  std::string subject;
  std::string date;          ///< "dd/mm/yyyy"
  std::string dataFileName;  ///< the name it was to have; "" = unknown
  std::int64_t blocks = 0;   ///< that can be recovered, at least 1
  int notes = 0;
  bool notesAreDamaged = false;  ///< a part of the side file cannot be read
};

enum class RecoveryOutcome {
  recovered,
  folderInUse,    ///< an examination is being recorded into it
  notReservable,  ///< nobody can be kept from recording into it
  nothingToMake,  ///< the temporary file has changed, or is gone
  failed,
};

/// The result of a recovery. Unless the outcome is `recovered`, nothing has changed.
struct Recovery {
  RecoveryOutcome outcome;
  std::string fileName = {};        ///< of the data file, without folder
  std::int64_t blocks = 0;          ///< in it
  int notes = 0;                    ///< in it
  std::optional<Facts> fault = {};  ///< why it failed
};

}  // namespace korvinel
