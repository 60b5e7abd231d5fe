#pragma once

#include <string>

#include "platform/colour.h"
#include "values/bounded.h"
#include "values/fixed.h"
#include "values/int16.h"

namespace korvinel::platform {
struct Platform;
}

namespace korvinel {

struct CommentWindow;
struct ProgramValues;
struct ReportWindow;

/// The last step of loadReport that was completed; the steps before it are complete too.
enum class ReportStep { none, spectra, noise, graphs, bandValues, verdicts };

/// The report window's record. It lives as long as the window; its operations take no arguments and return nothing.
/// All of them but loadReport require a loaded report.
/// Channels 1..4 are F1, F2, T5, T6; pairs 1..4 are F1-F2, T5-T6, F1-T5, F2-T6. Row 0 of channels and pairs is unused.
/// loadReport reads the histories and the interval once; later changes in the main window do not show.
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
  Int16 numbersFlag = 0;     ///< 1 once "Numeri" has been pressed
  platform::Colour backgroundColour = platform::Colour::windowBackground;  ///< of the ground
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
  std::string printPromptText;  ///< the question before printing
  double timerMark = 0;         ///< start of the running wait, seconds

  // Kept by app/
  int operationsUnderWay = 0;  ///< operations can nest, as waits dispatch events; the record lives until it is 0

  // --- Operations --------------------------------------------------------------------------------------------------

  // report/load_report.cpp
  /// Builds the whole report, once, when the window is created: sets the defaults and runs computeReportSpectra,
  /// fitNoiseCurve, drawSpectraAndCoherence, drawBandValues and buildVerdicts, noting each in `reached`. A fault ends
  /// it and leaves what was drawn so far.
  void loadReport();

  // report/statistics.cpp
  /// Means over the interval: `shared` histories into `meanSpectrum`, `coherenceSpectrum` and `pairCoherence`; writes
  /// the header into `reportLines` 1..4. An interval without blocks is a RuntimeError.
  void computeReportSpectra();
  /// Maximum and mean of each band of `meanSpectrum`, into `maxDelta` .. `meanBeta`.
  void computeBandValues();

  // report/noise_curve.cpp
  void fitNoiseCurve();  ///< fits the undifferentiated background activity of `meanSpectrum`, into `noiseCurve`

  // report/graphs.cpp
  /// Clears and draws the eight panels from `meanSpectrum` (by `microvoltScale`), `coherenceSpectrum` and
  /// `pairCoherence`. Copies index 1 of each `coherenceSpectrum` to index 0.
  void drawSpectraAndCoherence();
  /// Computes the band values, copies those of the ticked check box into `shownDelta` .. `shownBeta` (with neither
  /// ticked these stay) and writes them into the spectrum panels.
  void drawBandValues();
  void barColourForBin();  ///< sets `traceColour`, the palette index of bar `binIndex`
  void maximumClicked();   ///< the maxima were ticked or unticked: ticked, the means are not; redraws
  void meanClicked();      ///< the same the other way round
  void scaleMoved();       ///< sets `microvoltScale` and line 4 of `reportLines`; redraws
  void redraw();           ///< the panels and their band values

  // report/comments.cpp
  /// Judges alpha (`maxAlpha`, `noiseCurve`), symmetry (`meanSpectrum`) and coherence (`pairCoherence`): writes
  /// `commentScores` and `reportLines` 6..14, and prints all lines on the ground.
  void buildVerdicts();
  /// "Commenti": chooses `shared.commentTexts` by `commentScores`, opens the comment window and prints them.
  void showCommentReport();

  // report/report_commands.cpp
  void exitCommand();     ///< "Uscita": closes the report window
  void numbersCommand();  ///< "Numeri": sets `numbersFlag` and draws the band values
  void printCommand();    ///< "Stampa": asks, then prints the active window
  void explainCommand();  ///< "Spiega": a box about the noise curve
  void closeReport();     ///< the window has been closed, by the user or by the program: shows the main window
};

}  // namespace korvinel
