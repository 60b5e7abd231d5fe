#pragma once

#include <string>
#include <vector>

#include "platform/companion_windows.h"
#include "platform/headless/memory_files.h"
#include "platform/headless/scripted_dialogs.h"
#include "platform/headless/scripted_instrument.h"
#include "platform/headless/scripted_serial_port.h"
#include "platform/headless/virtual_time.h"
#include "platform/machine.h"
#include "platform/operation_edge.h"
#include "platform/platform.h"
#include "platform/screen_printer.h"

namespace korvinel::platform {

/// Records the requests to the system, in order: "thread 1", "process 128".
struct RecordingMachine : Machine {
  std::vector<std::string> asked;
  std::string home = "/home/medico/";
  void setThreadPriority(int steps) override { asked.push_back("thread " + std::to_string(steps)); }
  void setPriorityClass(int priorityClass) override { asked.push_back("process " + std::to_string(priorityClass)); }
  std::string homeFolder() override { return home; }
  std::vector<std::string> told;  ///< the lines for standard error
  void tell(const std::string& line) override { told.push_back(line); }
  Identity self{"anna", "studio-1", 4711};
  Identity identity() override { return self; }
};

/// Records what was printed: "empty", "key 1", "print 10 3 190 145".
struct RecordingPrinter : ScreenPrinter {
  int majorVersion = 10;
  std::vector<std::string> done;
  int systemMajorVersion() override { return majorVersion; }
  void emptyClipboard() override { done.emplace_back("empty"); }
  void pressPrintScreen(int scanCode) override { done.push_back("key " + std::to_string(scanCode)); }
  void printClipboard(double x, double y, double width, double height) override;
};

/// Records which windows were requested; the owner of the windows decides what happens.
struct RecordingWindows : CompanionWindows {
  std::vector<std::string> asked;  ///< "report", "close report", "comments", "main"
  std::function<void()> onReport, onCloseReport, onComments;
  void showReport() override { note("report", onReport); }
  void closeReport() override { note("close report", onCloseReport); }
  void showComments() override { note("comments", onComments); }
  void showMain() override { note("main", {}); }

 private:
  void note(const std::string& what, const std::function<void()>& act) {
    asked.push_back(what);
    if (act) act();
  }
};

/// A machine without a screen: virtual clock, scripted line and answers, files in memory.
struct HeadlessPlatform {
  /// `disk`: another machine's, which must outlive this one; without it, an empty one of its own.
  explicit HeadlessPlatform(MemoryFiles* disk = nullptr) : files(disk != nullptr ? *disk : ownFiles) {
    time.onStep = [this] { instrument.deliverIfPolled(); };
    dialogs.edge = &edge;
    edge.onFault = [this](const std::exception& fault) { faults.emplace_back(fault.what()); };
  }

  OperationEdge edge;
  VirtualTime time{edge};
  VirtualTimer tickTimer{time};
  VirtualTimer pauseTimer{time};
  ScriptedDialogs dialogs;
  MemoryFiles ownFiles;
  MemoryFiles& files;
  ScriptedSerialPort serialPort{time};
  ScriptedInstrument instrument{serialPort};
  RecordingMachine machine;
  RecordingPrinter printer;
  RecordingWindows windows;
  std::vector<std::string> faults;  ///< messages of the operations that ended in a fault

  Platform platform{time, time, tickTimer, pauseTimer, dialogs, files, serialPort, machine, printer, windows};
};

}  // namespace korvinel::platform
