#pragma once

#include <optional>
#include <string>

#include "platform/machine.h"

namespace korvinel {

/// The note in the data folder's lock file, which another program shows to its user as it is. `second`: its second
/// line, "dalle HH:MM del DD/MM/YYYY" of an acquisition.
[[nodiscard]] std::string lockNote(const platform::Identity& self, const std::string& second);

/// The facts of a note.
struct LockHolder {
  platform::Identity self;
  std::string since;  ///< "HH:MM" of an acquisition, else ""
  std::string day;    ///< "DD/MM/YYYY" with it
};

/// None if it is not a note of this form.
[[nodiscard]] std::optional<LockHolder> holderIn(const std::string& note);

}  // namespace korvinel
