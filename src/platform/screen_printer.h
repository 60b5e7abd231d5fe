#pragma once

namespace korvinel::platform {

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
