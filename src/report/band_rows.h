#pragma once

#include <array>

#include "eeg/bands.h"
#include "report/report_state.h"

namespace korvinel {

/// A band in the report: the fields that hold its values, and the position of its text in a spectrum panel.
struct BandRow {
  const eeg::Band& band;
  Bounded<Fixed, 4> ReportState::*maximum;
  Bounded<Fixed, 4> ReportState::*mean;
  Bounded<float, 4> ReportState::*shown;
  int x, y;                     ///< panel units
  const char* label;            ///< before the value
  const char* labelOfPanelTwo;  ///< the second panel spaces two of them differently, as is settled
};

inline constexpr std::array<BandRow, 4> bandRows = {{
    {eeg::delta, &ReportState::maxDelta, &ReportState::meanDelta, &ReportState::shownDelta, 60, 8, "Delta=", "Delta="},
    {eeg::theta, &ReportState::maxTheta, &ReportState::meanTheta, &ReportState::shownTheta, 100, 8,
     "Theta=", "Theta ="},
    {eeg::alpha, &ReportState::maxAlpha, &ReportState::meanAlpha, &ReportState::shownAlpha, 60, 30,
     "Alpha  =", "Alpha  ="},
    {eeg::beta, &ReportState::maxBeta, &ReportState::meanBeta, &ReportState::shownBeta, 100, 30, "Beta=", "Beta ="},
}};

}  // namespace korvinel
