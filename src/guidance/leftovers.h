#pragma once

#include <string>

namespace korvinel {
struct MainState;
}

namespace korvinel::guidance {

/// The parts of the main window that still show the examination before, although it is no longer in memory. They are
/// to be covered, so that nobody takes them for the next person's.
struct Leftovers {
  bool firstTrace = false, secondTrace = false;
  bool spectra = false;      ///< with their axis and rulers
  bool numbers = false;      ///< with the coherence beside them
  bool strip = false;        ///< the time strip
  bool messages = false;     ///< the upper part of the message panel, with the names in the summary of a file
  bool labels = false;       ///< date, time, blocks and the line under them
  std::string reason;        ///< the sentence on the graphs; "" if nothing is covered
  std::string labelsReason;  ///< the sentence on the labels

  friend bool operator==(const Leftovers&, const Leftovers&) = default;
};

[[nodiscard]] Leftovers leftoversOf(const MainState& state);

}  // namespace korvinel::guidance
