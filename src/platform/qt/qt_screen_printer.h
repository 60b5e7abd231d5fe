#pragma once

#include "platform/dialogs.h"
#include "platform/machine.h"
#include "platform/path_notation.h"

namespace korvinel::platform {

/// Copies the active window to the clipboard and prints the clipboard's picture on the default printer; where no
/// printer is installed, into a PDF file beside the data files, with a notice that says so.
class QtScreenPrinter : public ScreenPrinter {
 public:
  QtScreenPrinter(Dialogs& dialogs, PathNotation paths) : dialogs_(dialogs), paths_(std::move(paths)) {}

  int systemMajorVersion() override;
  void emptyClipboard() override;
  void pressPrintScreen(int scanCode) override;
  void printClipboard(double x, double y, double width, double height) override;

 private:
  [[nodiscard]] std::string nextPdf() const;

  Dialogs& dialogs_;
  PathNotation paths_;
};

}  // namespace korvinel::platform
