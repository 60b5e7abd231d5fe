#pragma once

#include <optional>
#include <string>

#include "platform/machine.h"

namespace korvinel {

/// The note in the data folder's lock file, which another program shows to its user as it is. `second`: its second
/// line, "dalle 10:05 del 21/11/2026" of an acquisition.
[[nodiscard]] std::string lockNote(const platform::Identity& self, const std::string& second);

/// The facts of a note.
struct LockHolder {
  platform::Identity self;
  std::string since;  ///< "10:05", the beginning of an acquisition; else ""
  std::string day;    ///< "21/11/2026" with it
};

/// None if it is not a note of this form.
[[nodiscard]] std::optional<LockHolder> holderIn(const std::string& note);

}  // namespace korvinel
