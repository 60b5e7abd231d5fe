#pragma once

#include <QImage>
#include <QObject>
#include <QPointer>
#include <QWidget>
#include <functional>

#include "platform/dialogs.h"
#include "platform/path_notation.h"
#include "platform/qt/recorded_text.h"
#include "platform/screen_printer.h"

namespace korvinel::platform {

/// Copies the active window to the clipboard and prints the clipboard's picture on the default printer, or, if none is
/// installed, into a PDF file beside the data files, with a notice. The file is complete or absent, and always leaves
/// 10 MB free on the disk, which a recording may need. A notice reports what cannot be printed.
class QtScreenPrinter : public ScreenPrinter {
 public:
  using Text = std::function<std::string()>;

  /// `dataFileName`: returns the name of the current data file, after which a PDF file is named; may be empty.
  /// `pageNote`: returns a line for the page below the picture, UTF-8; may be empty.
  QtScreenPrinter(
      Dialogs& dialogs, PathNotation paths, Text dataFileName = [] { return std::string(); },
      Text pageNote = [] { return std::string(); });

  int systemMajorVersion() override;
  void emptyClipboard() override;
  void pressPrintScreen(int scanCode) override;
  void printClipboard(double x, double y, double width, double height) override;

 private:
  /// Prints; returns the PDF file in the program's notation, or "" if the page went to a printer.
  std::string print(const QRectF& millimetres);
  [[nodiscard]] std::string printIntoFile(const QImage& picture, const QRectF& millimetres) const;
  [[nodiscard]] QWidget* windowToPrint() const;
  [[nodiscard]] QImage pictureToPrint() const;
  [[nodiscard]] std::string nextPdf() const;

  Dialogs& dialogs_;
  PathNotation paths_;
  Text dataFileName_, pageNote_;
  QPointer<QWidget> lastActive_;  ///< the window that has or last had the focus, boxes excepted
  QObject watch_;                 ///< ends the observation with this object
  QImage captured_;               ///< the clipboard's content after the last capture
  QImage sharp_;                  ///< the same window at the same moment, painted for paper
  WindowTexts texts_;             ///< its texts at that moment
};

}  // namespace korvinel::platform
