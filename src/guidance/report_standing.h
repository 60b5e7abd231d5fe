#pragma once

#include <string>

namespace korvinel {
struct MainState;
struct ProgramValues;
struct ReportState;
}  // namespace korvinel

namespace korvinel::guidance {

/// What a report was made of. The report keeps its numbers while the main window goes on to other examinations.
struct ReportOrigin {
  int examination = 0;  ///< its count
  std::string file, subject;
  int firstBlock = 0, lastBlock = 0;
};

/// Of a report that is made now.
[[nodiscard]] ReportOrigin reportOrigin(const ProgramValues& shared);

/// "0:00-2:06", from the beginning of the first block to the end of the last; "intervallo vuoto" if it is reversed.
[[nodiscard]] std::string intervalText(int firstBlock, int lastBlock);

/// What a report stands for, beside it and beside its comments.
struct ReportStanding {
  std::string line;      ///< for which file and interval it stands, and whether that is still what is open
  bool current = false;  ///< it stands for what is open now
  std::string missing;   ///< why there is nothing to read in it: "Rapporto non calcolato: ..."; "" = it was calculated
  std::string doubtful;  ///< why its comments are not valid, although it was calculated; "" = they are

  friend bool operator==(const ReportStanding&, const ReportStanding&) = default;
};

/// `report`: once it has been loaded.
[[nodiscard]] ReportStanding reportStanding(const ReportOrigin& origin, const ReportState& report,
                                            const MainState& state);

/// The `missing` and `doubtful` of a loaded report alone.
void judgeData(ReportStanding& standing, const ReportOrigin& origin, const ReportState& report);

}  // namespace korvinel::guidance
