#pragma once

#include <string>

namespace korvinel::platform {

/// Who runs the program, and where.
struct Identity {
  std::string user, computer;
  int process;
};

/// What the program asks of the operating system. Priorities are requests: a system that refuses them is no error.
struct Machine {
  virtual ~Machine() = default;
  virtual void setThreadPriority(int stepsAboveNormal) = 0;  ///< of the calling thread; 1 = one step above normal
  virtual void setPriorityClass(int priorityClass) = 0;      ///< of the process; 128 = high
  virtual std::string homeFolder() = 0;  ///< the user's own, with the separator behind it, as the host writes paths
  /// Writes a line to standard error, for whoever has started the program from a terminal.
  virtual void tell(const std::string& line) = 0;
  [[nodiscard]] virtual Identity identity() = 0;
};

/// The identity of this process, as the operating system tells it.
[[nodiscard]] Identity hostIdentity();

/// Windows beside the main window. They are opened and closed on the user-interface thread, not modal.
struct Windows {
  virtual ~Windows() = default;
  virtual void showReport() = 0;  ///< creates the report window, which loads its report, or brings the open one forward
  virtual void closeReport() = 0;
  virtual void showComments() = 0;  ///< creates the comment window, or brings the open one forward
  virtual void showMain() = 0;
};

/// The picture of the active window on its way to the printer.
struct ScreenPrinter {
  virtual ~ScreenPrinter() = default;
  virtual int systemMajorVersion() = 0;  ///< 4 = the first family of the system, 5 and more the second
  virtual void emptyClipboard() = 0;
  /// Presses the print-screen key: a picture of the active window goes to the clipboard. `scanCode` 0 or 1.
  virtual void pressPrintScreen(int scanCode) = 0;
  /// Prints the clipboard's picture on one page, at (x, y) from the page's corner, in millimetres.
  virtual void printClipboard(double x, double y, double width, double height) = 0;
};

}  // namespace korvinel::platform
