#pragma once

#include <string>

namespace korvinel::platform {

/// The user, computer and process that run the program.
struct Identity {
  std::string user, computer;
  int process;
};

/// What the program needs of the operating system. Priorities are requests: a refusal is no error.
struct Machine {
  virtual ~Machine() = default;
  virtual void setThreadPriority(int stepsAboveNormal) = 0;  ///< of the calling thread; 1 = one step above normal
  virtual void setPriorityClass(int priorityClass) = 0;      ///< of the process; 128 = high
  virtual std::string homeFolder() = 0;  ///< the user's, with a trailing separator, in the host's notation
  /// Writes a line to standard error.
  virtual void tell(const std::string& line) = 0;
  [[nodiscard]] virtual Identity identity() = 0;
};

/// The identity of this process according to the operating system.
[[nodiscard]] Identity hostIdentity();

/// The windows beside the main window, not modal. Called on the user-interface thread.
struct Windows {
  virtual ~Windows() = default;
  virtual void showReport() = 0;  ///< creates the report window and loads its report, or raises the open one
  virtual void closeReport() = 0;
  virtual void showComments() = 0;  ///< creates the comment window, or raises the open one
  virtual void showMain() = 0;
};

/// Copies the active window to the printer, through the clipboard.
struct ScreenPrinter {
  virtual ~ScreenPrinter() = default;
  virtual int systemMajorVersion() = 0;  ///< 4 = the older family of systems, 5 and above the newer
  virtual void emptyClipboard() = 0;
  /// Presses the print-screen key: a picture of the active window goes to the clipboard. `scanCode` 0 or 1.
  virtual void pressPrintScreen(int scanCode) = 0;
  /// Prints the clipboard's picture on one page, at (x, y) from the page's corner, in millimetres.
  virtual void printClipboard(double x, double y, double width, double height) = 0;
};

}  // namespace korvinel::platform
