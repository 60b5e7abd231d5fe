#pragma once

#include <QImage>
#include <QObject>
#include <QPointer>
#include <QWidget>
#include <functional>

#include "platform/dialogs.h"
#include "platform/machine.h"
#include "platform/path_notation.h"

namespace korvinel::platform {

/// Copies the active window to the clipboard and prints the clipboard's picture on the default printer; where no
/// printer is installed, into a PDF file beside the data files, with a notice that says so. The file is whole or not
/// there, and never takes the last 10 MB of the disk, which a recording may need. What cannot be printed is told in a
/// notice.
class QtScreenPrinter : public ScreenPrinter {
 public:
  /// `dataFileName`: gives the name of the data file at hand, after which a PDF file is named; may be empty.
  QtScreenPrinter(
      Dialogs& dialogs, PathNotation paths, std::function<std::string()> dataFileName = [] { return std::string(); });

  int systemMajorVersion() override;
  void emptyClipboard() override;
  void pressPrintScreen(int scanCode) override;
  void printClipboard(double x, double y, double width, double height) override;

 private:
  /// Prints, and gives the PDF file in the program's notation, or "" where a printer took the page.
  std::string print(const QRectF& millimetres);
  [[nodiscard]] std::string printIntoFile(const QImage& picture, const QRectF& millimetres) const;
  [[nodiscard]] QWidget* windowToPrint() const;
  [[nodiscard]] QImage pictureToPrint() const;
  [[nodiscard]] std::string nextPdf() const;

  Dialogs& dialogs_;
  PathNotation paths_;
  std::function<std::string()> dataFileName_;
  QPointer<QWidget> lastActive_;  ///< the window that has, or had last, the keyboard; boxes do not count
  QObject watch_;                 ///< ends the watching with this object
  QImage captured_;               ///< what the clipboard holds since the last capture
  QImage sharp_;                  ///< the same moment of the same window, painted for paper
};

}  // namespace korvinel::platform
