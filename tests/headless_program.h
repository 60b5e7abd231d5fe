#pragma once

#include <string>

#include "frame/fault_text.h"
#include "frame/main_state.h"
#include "frame/main_window.h"
#include "frame/program_values.h"
#include "platform/headless/headless_platform.h"
#include "wiring/main_wiring.h"

namespace korvinel {

/// The whole program without a screen: the main window's models and record on the headless platform. Its root has the
/// default files, with port 2 and all calibration factors 1.
struct HeadlessProgram {
  /// `neighbour`: another program, on the same disk; it must outlive this one.
  explicit HeadlessProgram(HeadlessProgram* neighbour = nullptr)
      : host(neighbour != nullptr ? &neighbour->host.files : nullptr) {
    std::string factors = "1";
    for (int i = 2; i <= 64; ++i) factors += i % 8 == 1 ? "\r\n1" : ",1";
    host.files.content["C:\\QUARVEL5\\Instal8s.val"] = "\"Korvinel\",\"Ita\",2,0,0,0,0\r\n\"\",\"\"\r\n";
    host.files.content["C:\\QUARVEL5\\Factors.val"] = factors + "\r\n";
    tieControls(state, host.edge);
    host.edge.onFault = [this](const std::exception& fault) { host.faults.push_back(faultText(fault)); };
  }

  /// Starts up and presses Start with these names; returns when the first tick is waiting.
  void startAcquisition(const std::string& fileName = "prova", const std::string& subject = "Rossi") {
    state.startUp();
    window.fileNameBox.type(fileName);
    window.subjectBox.type(subject);
    window.Starts1.press();
  }

  /// Runs until `count` more blocks have been accepted and their turns are over.
  void acquireBlocks(int count) {
    const int target = state.blockCount + count;
    host.time.runUntil([&] { return state.blockCount >= target && host.pauseTimer.enabled(); });
  }

  platform::HeadlessPlatform host;
  MainWindow window;
  ProgramValues shared;
  MainState state{window, shared, host.platform};
};

}  // namespace korvinel
