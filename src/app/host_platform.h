#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>

/// Selects the system that the program is built for; the only place that does.
#ifdef _WIN32
#include "platform/windows/disk_files.h"
#include "platform/windows/end_signals.h"
#include "platform/windows/serial_line.h"
#include "platform/windows/system_wakefulness.h"
#include "platform/windows/windows_machine.h"
#else
#include "platform/posix/disk_files.h"
#include "platform/posix/end_signals.h"
#include "platform/posix/posix_machine.h"
#include "platform/posix/serial_line.h"
#include "platform/qt/desktop_wakefulness.h"
#endif
#include "platform/qt/qt_screen_printer.h"

namespace korvinel {

#ifdef _WIN32
using HostMachine = platform::WindowsMachine;
using HostWakefulness = platform::SystemWakefulness;

/// The toolkit prints the picture that the system has captured.
class HostScreenPrinter : public platform::WindowsScreenPrinter {
 public:
  using Text = platform::QtScreenPrinter::Text;
  HostScreenPrinter(platform::Dialogs& dialogs, platform::PathNotation paths, Text dataFileName, Text pageNote)
      : WindowsScreenPrinter(std::make_unique<platform::QtScreenPrinter>(
            dialogs, std::move(paths), std::move(dataFileName), std::move(pageNote))) {}
};
#else
using HostMachine = platform::PosixMachine;
using HostWakefulness = platform::DesktopWakefulness;
using HostScreenPrinter = platform::QtScreenPrinter;
#endif

}  // namespace korvinel
