#pragma once

#include <string>

#include "frame/main_state.h"
#include "frame/main_window.h"
#include "frame/program_values.h"
#include "head_blocks.h"
#include "platform/headless/headless_platform.h"
#include "recordings.h"
#include "wiring/main_wiring.h"

namespace korvinel {

/// A whole recorded examination with a note, on the virtual clock, with the files that a test provides.
class RecordedExamination {
 public:
  explicit RecordedExamination(platform::Files& files, std::uint64_t seed = 1)
      : platform_{host.time, host.time,       host.tickTimer, host.pauseTimer, host.dialogs,
                  files,     host.serialPort, host.machine,   host.printer,    host.windows} {
    const auto source = instrument::modelSource({{instrument::Model::eyesClosed}}, seed);
    for (int block = 0; block < 12; ++block) host.instrument.blocks.push_back(blockOf(*source));
    tieControls(state, host.edge);
    state.startUp();
  }

  /// Start, one block, "Registra", `blocks` more with a note among them, Stop; returns after assembling.
  void run(const std::string& name, int blocks, const std::string& subject = "Rossi",
           const std::string& note = "nota") {
    window.fileNameBox.type(name);
    window.subjectBox.type(subject);
    window.Starts1.press();
    acquire(1);
    window.Registra.press();
    host.time.runUntil([&] { return state.recordingArmed == 0; });
    acquire(blocks - 1);
    window.Annotax.press();
    window.noteBox.type(note);
    window.noteBox.pressKey(13);
    acquire(1);
    window.Stopd1.press();
    host.time.runUntil([&] { return state.intervalSelectable == 1; }, 60);
  }

  void acquire(int blocks) {
    const int target = state.blockCount + blocks;
    host.time.runUntil([&] { return state.blockCount >= target && host.pauseTimer.enabled(); }, 60);
  }

  platform::HeadlessPlatform host;
  MainWindow window;
  ProgramValues shared;

 private:
  platform::Platform platform_;

 public:
  MainState state{window, shared, platform_};
};

/// Writes the settings and calibration files that the program needs.
inline void writeSettings(platform::Files& files) {
  std::string factors = "1";
  for (int i = 2; i <= 64; ++i) factors += ",1";
  files.create("C:\\QUARVEL5\\Instal8s.val")->write("\"Korvinel\",\"Ita\",2,0,0,0,0\r\n\"\",\"\"\r\n");
  files.create("C:\\QUARVEL5\\Factors.val")->write(factors + "\r\n");
}

}  // namespace korvinel
