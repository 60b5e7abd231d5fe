#pragma once

#include <optional>
#include <string>

#include "app/guidance.h"
#include "app/host_platform.h"
#include "app/main_window_view.h"
#include "app/report_windows.h"
#include "app/room_aids.h"
#include "frame/main_state.h"
#include "frame/main_window.h"
#include "frame/program_values.h"
#include "guidance/settings_file.h"
#include "guidance/trial.h"
#include "platform/host_paths.h"
#include "platform/operation_edge.h"
#include "platform/path_notation.h"
#include "platform/platform.h"
#include "platform/qt/qt_dialogs.h"
#include "platform/qt/qt_timing.h"
#include "platform/qt/sudden_end.h"
#include "platform/screen_printer.h"

namespace korvinel {

/// The whole program on the screen: the main window's models and record on this machine.
class Program {
 public:
  /// `dataFolder`: holds the program's drive C and the links to the serial ports.
  explicit Program(std::string dataFolder);

  void startUp();  ///< throws a RuntimeError if the program cannot work
  int run();       ///< shows the window; returns when the program has ended

 private:
  bool mayClose();
  void end();
  void endAtOnce();
  void tell(const std::exception& fault);
  [[nodiscard]] bool isTrial() const;

  std::string dataFolder_;
  platform::PathNotation paths_;
  platform::OperationEdge edge_;
  platform::QtClock clock_;
  platform::QtEventPump events_{edge_};
  platform::QtTimer tickTimer_, pauseTimer_;
  platform::QtDialogs dialogs_{edge_, paths_};
  platform::DiskFiles files_{dataFolder_};
  platform::SerialLine serialPort_;
  HostMachine machine_;
  HostScreenPrinter screenPrinter_{dialogs_, paths_, [this] { return shared_.dataFileName; },
                                   [this] { return std::string(isTrial() ? guidance::trialNotice : ""); }};
  ProgramValues shared_;
  ReportWindows windows_{shared_, edge_};
  platform::Platform platform_{clock_, events_,     tickTimer_, pauseTimer_,    dialogs_,
                               files_, serialPort_, machine_,   screenPrinter_, windows_};
  MainWindow window_;
  MainState state_{window_, shared_, platform_};
  MainWindowView view_;
  guidance::SettingsFile settings_{platform::userSettingsFolder()};
  HostWakefulness wakefulness_;
  std::optional<Guidance> guidance_;
  std::optional<RoomAids> aids_;
  bool displayIsThere_ = true;
  platform::EndSignals signals_;
  platform::SuddenEnd suddenEnd_;
};

}  // namespace korvinel
