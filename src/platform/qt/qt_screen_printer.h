#pragma once

#include "platform/dialogs.h"
#include "platform/machine.h"

class QImage;
class QPrinter;

namespace korvinel::platform {

/// Copies the active window to the clipboard and prints the clipboard's picture on the default printer; where no
/// printer is installed, into a PDF file beside the data files, with a notice that says so.
class QtScreenPrinter : public ScreenPrinter {
 public:
  /// `dataFolder`: where the program's drive C lies.
  QtScreenPrinter(Dialogs& dialogs, std::string dataFolder) : dialogs_(dialogs), dataFolder_(std::move(dataFolder)) {}

  int systemMajorVersion() override;
  void emptyClipboard() override;
  void pressPrintScreen(int scanCode) override;
  void printClipboard(double x, double y, double width, double height) override;

 private:
  [[nodiscard]] std::string nextPdf() const;

  Dialogs& dialogs_;
  std::string dataFolder_;
};

}  // namespace korvinel::platform
