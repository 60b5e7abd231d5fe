#include "platform/qt/qt_screen_printer.h"

#include <QApplication>
#include <QClipboard>
#include <QDateTime>
#include <QDialog>
#include <QFileInfo>
#include <QPainter>
#include <QPrinter>
#include <QPrinterInfo>
#include <algorithm>
#include <cmath>

#include "platform/qt/focus_ring.h"
#include "values/runtime_error.h"

namespace korvinel::platform {
namespace {

/// The window that a dialog belongs to, or the window itself.
QWidget* withoutDialogs(QWidget* window) {
  while (window != nullptr && qobject_cast<QDialog*>(window) != nullptr)
    window = window->parentWidget() != nullptr ? window->parentWidget()->window() : nullptr;
  return window;
}

/// The active window; where none has the keyboard the one on top, which is owned by the other.
QWidget* windowToPrint() {
  QWidget* top = withoutDialogs(QApplication::activeWindow());
  if (top != nullptr) return top;
  for (QWidget* window : QApplication::topLevelWidgets())
    if (window->isVisible() && withoutDialogs(window) == window)
      if (top == nullptr || window->parentWidget() != nullptr) top = window;
  return top;
}

/// A page has no keyboard.
void showFocusRings(const QWidget& window, bool shown) {
  for (QWidget* child : window.findChildren<QWidget*>())
    if (auto* ring = dynamic_cast<FocusRing*>(child)) ring->setShown(shown);
}

/// The window with its letters and lines as fine as paper shows them.
QImage paintedForPaper(QWidget& window) {
  constexpr double dotsAcross = 2600;  // some 350 an inch
  const qreal ratio = std::clamp(std::ceil(dotsAcross / window.width()), window.devicePixelRatioF(), 4.0);
  QImage picture(window.size() * ratio, QImage::Format_RGB32);
  picture.setDevicePixelRatio(ratio);
  window.render(&picture);
  return picture;
}

/// `place`: millimetres from the page's corner.
void printPicture(QPrinter& printer, QImage picture, const QRectF& place) {
  constexpr double millimetresPerInch = 25.4;
  printer.setFullPage(true);
  picture.setDevicePixelRatio(1);
  const double dots = printer.resolution() / millimetresPerInch;
  QPainter painter;
  if (!painter.begin(&printer)) throw RuntimeError(Fault::output, "La pagina non si puo' cominciare.");
  painter.setRenderHints(QPainter::SmoothPixmapTransform | QPainter::LosslessImageRendering);
  painter.drawImage(QRectF(place.x() * dots, place.y() * dots, place.width() * dots, place.height() * dots), picture);
  const bool finished = painter.end();
  if (!finished || printer.printerState() == QPrinter::Error)
    throw RuntimeError(Fault::output, "La stampante non ha preso la pagina.");
}

}  // namespace

/// Of the second family of systems, whatever this one counts.
int QtScreenPrinter::systemMajorVersion() { return 10; }

void QtScreenPrinter::emptyClipboard() {
  QApplication::clipboard()->clear();
  captured_ = sharp_ = QImage();
}

void QtScreenPrinter::pressPrintScreen(int) {
  QWidget* window = windowToPrint();
  if (window == nullptr) return;
  showFocusRings(*window, false);
  captured_ = window->grab().toImage();
  sharp_ = paintedForPaper(*window);
  showFocusRings(*window, true);
  QApplication::clipboard()->setImage(captured_);
}

void QtScreenPrinter::printClipboard(double x, double y, double width, double height) {
  try {
    const std::string file = print({x, y, width, height});
    if (!file.empty()) dialogs_.notice("Nessuna stampante installata.\rL'immagine e' nel file\r" + file);
  } catch (const RuntimeError& fault) {
    dialogs_.notice(std::string("La stampa non e' riuscita.\r") + fault.what());
  }
}

std::string QtScreenPrinter::print(const QRectF& millimetres) {
  const QImage picture = pictureToPrint();
  if (picture.isNull()) throw RuntimeError(Fault::output, "Non c'e' un'immagine da stampare.");
  QPrinter printer(QPrinter::HighResolution);
  printer.setDocName("Korvinel");
  if (!QPrinterInfo::availablePrinterNames().isEmpty()) {
    printPicture(printer, picture, millimetres);
    return "";
  }
  const std::string file = nextPdf();
  printer.setOutputFormat(QPrinter::PdfFormat);
  printer.setOutputFileName(QString::fromStdString(paths_.toHost(file)));
  try {
    printPicture(printer, picture, millimetres);
  } catch (const RuntimeError&) {
    throw RuntimeError(Fault::output, "Il file non si puo' scrivere:\r" + file);
  }
  return file;
}

/// The clipboard's picture; in its place our own painting of it, as long as it is what the clipboard holds.
QImage QtScreenPrinter::pictureToPrint() const {
  const QImage picture = QApplication::clipboard()->image();
  return !sharp_.isNull() && picture == captured_ ? sharp_ : picture;
}

/// A name that no file has yet.
std::string QtScreenPrinter::nextPdf() const {
  const std::string dataFile = QFileInfo(QString::fromStdString(dataFileName_())).completeBaseName().toStdString();
  const std::string stem = "C:\\QUARVEL5\\DATAFILE\\" + (dataFile.empty() ? "Stampa" : dataFile) + "-" +
                           QDateTime::currentDateTime().toString("yyyyMMdd-HHmmss").toStdString();
  std::string path = stem + ".pdf";
  for (int number = 2; QFileInfo::exists(QString::fromStdString(paths_.toHost(path))); ++number)
    path = stem + "-" + std::to_string(number) + ".pdf";
  return path;
}

}  // namespace korvinel::platform
