#pragma once

#include <memory>
#include <utility>

#include "platform/machine.h"
#include "platform/screen_printer.h"

namespace korvinel::platform {

/// Priorities by the system's own calls and numbers; a refusal is not an error.
class WindowsMachine : public Machine {
 public:
  void setThreadPriority(int stepsAboveNormal) override;
  void setPriorityClass(int priorityClass) override;
  std::string homeFolder() override;
  void tell(const std::string& line) override;
  [[nodiscard]] Identity identity() override { return hostIdentity(); }
};

/// Lets the system copy the active window to the clipboard; another printer prints it.
class WindowsScreenPrinter : public ScreenPrinter {
 public:
  /// `printer`: prints the clipboard's picture, and captures the window if the print-screen key brings no new picture
  /// (another program may have taken that key).
  explicit WindowsScreenPrinter(std::unique_ptr<ScreenPrinter> printer) : printer_(std::move(printer)) {}

  int systemMajorVersion() override;
  void emptyClipboard() override;
  void pressPrintScreen(int scanCode) override;
  void printClipboard(double x, double y, double width, double height) override;

 private:
  std::unique_ptr<ScreenPrinter> printer_;
  int scanCode_ = 0;
  unsigned long clipboardBefore_ = 0;  ///< the clipboard's number when the key was pressed
};

}  // namespace korvinel::platform
