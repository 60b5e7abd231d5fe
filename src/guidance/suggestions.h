#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "platform/timing.h"

namespace korvinel::guidance {

/// The subjects of earlier recordings.
class KnownSubjects {
 public:
  /// `date`: "dd/mm/yyyy". Of one name in several spellings the latest recording's is kept.
  void add(const std::string& subject, const std::string& date);

  /// What the typed beginning (two letters or more, upper or lower case) can only become: a subject's name or, if there
  /// are several, as much as they have in common. One of several persons is never chosen. "" = nothing, or the
  /// beginning is a name already.
  [[nodiscard]] std::string completionOf(std::string_view typed) const;

 private:
  struct Known {
    std::string spelling;
    std::string day;  ///< in the order of time
  };
  std::map<std::string, Known> byName_;  ///< by the name in upper case
};

/// A name for the data file of this subject's examination, without ending: "rossi-anna-2026-11-21", then "... -2" and
/// so on until `isUsable` accepts one. "" if the subject has no letter.
[[nodiscard]] std::string suggestedFileName(std::string_view subject, const platform::CalendarTime& day,
                                            const std::function<bool(const std::string& name)>& isUsable);

/// What follows the typed text in a suggestion that begins with it, upper or lower case; "" if none does.
[[nodiscard]] std::string restOf(std::string_view suggestion, std::string_view typed);

}  // namespace korvinel::guidance
