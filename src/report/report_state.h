#pragma once

#include <string>

#include "frame/program_values.h"
#include "platform/colour.h"
#include "platform/platform.h"
#include "report/report_window.h"
#include "values/bounded.h"
#include "values/fixed.h"
#include "values/int16.h"

namespace korvinel {

/// How far loadReport has come: each step stands for itself and those before it.
enum class ReportStep { none, spectra, noise, graphs, bandValues, verdicts };

/// The report window's record. It lives as long as the window; its operations take no arguments and return nothing.
/// Channels 1..4 are F1, F2, T5, T6; pairs 1..4 are F1-F2, T5-T6, F1-T5, F2-T6. Row 0 of channels and pairs is unused.
/// The histories and the interval are read once, by loadReport: later changes in the main window do not show.
struct ReportState {
  ReportState(ReportWindow& reportWindow, CommentWindow& commentWindow, ProgramValues& programValues,
              platform::Platform& theHost)
      : window(reportWindow), comments(commentWindow), shared(programValues), host(theHost) {}

  ReportWindow& window;
  CommentWindow& comments;
  ProgramValues& shared;
  platform::Platform& host;

  // --- Fields ------------------------------------------------------------------------------------------------------

  // Set when the report opens: report/open_report.cpp
  Int16 reportBinCount = 0;  ///< spectrum indexes of the report, 64
  Int16 microvoltScale = 0;  ///< full scale of the spectrum panels, microvolts
  Int16 traceColour = 0;     ///< palette index of the bar being drawn
  Int16 numbersFlag = 0;     ///< 1 once the numbers button was pressed
  platform::Colour backgroundColour = platform::Colour::windowBackground;
  std::string reportDate;                ///< day on which the report is made, "dd/mm/yyyy"
  Bounded<std::string, 14> reportLines;  ///< 1..4: header; 6, 7: alpha; 9, 10: symmetry; 12, 13: coherence

  ReportStep reached = ReportStep::none;  ///< the last step of loadReport that was completed

  // Statistics of the interval: report/statistics.cpp, report/noise_curve.cpp
  Bounded<float, 4, 66> meanSpectrum;       ///< [channel][index 1..64], microvolts, one decimal
  Bounded<float, 4, 66> coherenceSpectrum;  ///< [pair][index 1..64], 100 x cosine; its mean is the pair's coherence
  Bounded<float, 4> pairCoherence;          ///< [pair], mean correlation of the blocks in percent, one decimal
  Bounded<Fixed, 4> maxDelta, maxTheta, maxAlpha, maxBeta;      ///< [channel], microvolts, one decimal
  Bounded<Fixed, 4> meanDelta, meanTheta, meanAlpha, meanBeta;  ///< [channel], microvolts, one decimal
  Bounded<Fixed, 4, 130> noiseCurve;                            ///< [channel][index 1..64], microvolts

  // Graphs: report/graphs.cpp
  Int16 binIndex = 0;                                               ///< the bar being drawn, 1..64
  Bounded<float, 4> shownDelta, shownTheta, shownAlpha, shownBeta;  ///< [channel], the values written in the panels

  // Verdicts: report/comments.cpp
  /// 1, 2: frontal and temporal alpha, 0..3; 3, 4: frontal and temporal symmetry, -2..2; 5, 6: F1-F2 and T5-T6
  /// coherence, 0..3
  Bounded<float, 6> commentScores;

  // Printing: report/report_commands.cpp
  std::string printPromptText;
  double timerMark = 0;  ///< start of the running wait, seconds

  // Kept by whoever runs the operations
  int operationsUnderWay = 0;  ///< a wait lets others in; the record must live until none is left

  // --- Operations --------------------------------------------------------------------------------------------------

  // report/load_report.cpp
  void loadReport();  ///< the whole report, once, when the window is created; a fault leaves what was drawn so far

  // report/statistics.cpp
  void computeReportSpectra();  ///< also writes the header lines
  void computeBandValues();

  // report/noise_curve.cpp
  void fitNoiseCurve();  ///< the undifferentiated background activity, from `meanSpectrum`

  // report/graphs.cpp
  void drawSpectraAndCoherence();  ///< clears and draws the eight panels
  void drawBandValues();           ///< writes the maxima or means into the spectrum panels
  void barColourForBin();          ///< sets `traceColour` from `binIndex`
  void maximumClicked();           ///< the two check boxes exclude each other
  void meanClicked();
  void scaleMoved();
  void redraw();

  // report/comments.cpp
  void buildVerdicts();
  void showCommentReport();

  // report/report_commands.cpp
  void exitCommand();
  void numbersCommand();
  void printCommand();
  void explainCommand();
  void closeReport();  ///< runs when the window closes, whoever closes it
};

}  // namespace korvinel
