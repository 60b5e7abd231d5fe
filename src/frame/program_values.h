#pragma once

#include <string>

#include "values/bounded.h"
#include "values/int16.h"

namespace korvinel {

/// Values that the main window and the report window share.
struct ProgramValues {
  /// Whether the checks and texts that exist in Italian only are made.
  [[nodiscard]] bool inItalian() const { return languageFlag == "Ita"; }

  std::string languageFlag = "Ita";  ///< language of the user interface; most checks and texts need "Ita"
  Int16 channelCount = 4;

  // The interval for the report, and the recording for replay: block numbers from 1
  Int16 analysisFirstBlock = 0;
  Int16 analysisLastBlock = 0;
  Int16 replayStartBlock = 0;  ///< shown as Z1
  Int16 fileBlockCount = 0;    ///< blocks of the finished or opened recording; shown as Z2

  int examination = 0;  ///< counts the examinations: changes whenever the histories are emptied for another

  std::string subjectName;
  std::string dataFileName;  ///< without folder

  // Histories: one entry per block, index 1..202
  Bounded<float, 202, 4, 130> spectrumHistory;           ///< [block][channel 1..4][index 1..128], microvolts
  Bounded<float, 202, 4, 130> coherenceSpectrumHistory;  ///< [block][pair 1..4][index 1..128], 100 x cosine
  Bounded<float, 4, 202> coherenceHistory;               ///< [pair 1..4][block], whole percent; element 0 stays 0

  Bounded<std::string, 5> commentTexts;  ///< 1..5: alpha, anxiety, frontal, temporal symmetry, coherence
};

}  // namespace korvinel
