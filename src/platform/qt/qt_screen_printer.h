#pragma once

#include <QImage>
#include <functional>

#include "platform/dialogs.h"
#include "platform/machine.h"
#include "platform/path_notation.h"

class QPrinter;

namespace korvinel::platform {

/// Copies the active window to the clipboard and prints the clipboard's picture on the default printer; where no
/// printer is installed, into a PDF file beside the data files, with a notice that says so. What cannot be printed is
/// told in a notice.
class QtScreenPrinter : public ScreenPrinter {
 public:
  /// `dataFileName`: gives the name of the data file at hand, after which a PDF file is named; may be empty.
  QtScreenPrinter(
      Dialogs& dialogs, PathNotation paths, std::function<std::string()> dataFileName = [] { return std::string(); })
      : dialogs_(dialogs), paths_(std::move(paths)), dataFileName_(std::move(dataFileName)) {}

  int systemMajorVersion() override;
  void emptyClipboard() override;
  void pressPrintScreen(int scanCode) override;
  void printClipboard(double x, double y, double width, double height) override;

 private:
  /// Prints, and gives the PDF file in the program's notation, or "" where a printer took the page.
  std::string print(const QRectF& millimetres);
  [[nodiscard]] QImage pictureToPrint() const;
  [[nodiscard]] std::string nextPdf() const;

  Dialogs& dialogs_;
  PathNotation paths_;
  std::function<std::string()> dataFileName_;
  QImage captured_;  ///< what the clipboard holds since the last capture
  QImage sharp_;     ///< the same moment of the same window, painted for paper
};

}  // namespace korvinel::platform
