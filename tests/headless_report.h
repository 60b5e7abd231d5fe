#pragma once

#include <string>
#include <vector>

#include "headless_program.h"
#include "report/report_state.h"
#include "report/report_window.h"
#include "wiring/report_wiring.h"

namespace korvinel {

/// The program with its report window, without a screen. "Analisi" loads the report.
struct HeadlessReport : HeadlessProgram {
  HeadlessReport() {
    tieReport(report, host.edge);
    host.windows.onReport = [this] { runReport(report, host.edge, &ReportState::loadReport); };
    host.windows.onCloseReport = [this] { runReport(report, host.edge, &ReportState::closeReport); };
    shared.dataFileName = "prova.QVD";
    shared.subjectName = "Rossi";
  }

  /// Fills blocks `first`..`last` with one level at every spectrum index and one coherence.
  void fillHistories(int first, int last, float level = 5, float coherence = 60) {
    for (int block = first; block <= last; ++block)
      for (int row = 1; row <= 4; ++row) {
        for (int k = 1; k <= 128; ++k) shared.spectrumHistory[block][row][k] = level;
        for (int k = 1; k <= 128; ++k) shared.coherenceSpectrumHistory[block][row][k] = coherence;
        shared.coherenceHistory[row][block] = coherence;
      }
  }

  void choose(int first, int last) {
    shared.analysisFirstBlock = first;
    shared.analysisLastBlock = last;
  }

  /// Opens the report of a finished examination.
  void openReport(int first = 1, int last = 10) {
    choose(first, last);
    state.intervalSelectable = 1;
    window.Analisi.press();
  }

  ReportWindow reportWindow;
  CommentWindow comments;
  ReportState report{reportWindow, comments, shared, host.platform};
};

}  // namespace korvinel
