#include "platform/qt/qt_screen_printer.h"

#include <QApplication>
#include <QClipboard>
#include <QDateTime>
#include <QFileInfo>
#include <QImage>
#include <QPainter>
#include <QPixmap>
#include <QPrinter>
#include <QPrinterInfo>
#include <QWidget>

#include "values/runtime_error.h"

namespace korvinel::platform {
namespace {

QWidget* windowToPrint() {
  if (QWidget* active = QApplication::activeWindow()) return active;
  for (QWidget* window : QApplication::topLevelWidgets())
    if (window->isVisible()) return window;
  return nullptr;
}

/// `place`: millimetres from the page's corner.
void printPicture(QPrinter& printer, const QImage& picture, const QRectF& place) {
  constexpr double millimetresPerInch = 25.4;
  printer.setFullPage(true);
  const double dots = printer.resolution() / millimetresPerInch;
  QPainter painter;
  if (!painter.begin(&printer)) throw RuntimeError(Fault::output, "La stampante non risponde");
  painter.setRenderHints(QPainter::SmoothPixmapTransform | QPainter::LosslessImageRendering);
  painter.drawImage(QRectF(place.x() * dots, place.y() * dots, place.width() * dots, place.height() * dots), picture);
  if (!painter.end()) throw RuntimeError(Fault::output, "La stampa non e' riuscita");
}

}  // namespace

/// Of the second family of systems, whatever this one counts.
int QtScreenPrinter::systemMajorVersion() { return 10; }

void QtScreenPrinter::emptyClipboard() { QApplication::clipboard()->clear(); }

void QtScreenPrinter::pressPrintScreen(int) {
  if (QWidget* window = windowToPrint()) QApplication::clipboard()->setPixmap(window->grab());
}

void QtScreenPrinter::printClipboard(double x, double y, double width, double height) {
  const QImage picture = QApplication::clipboard()->image();
  if (picture.isNull()) throw RuntimeError(Fault::output, "Nessuna immagine da stampare");
  QPrinter printer(QPrinter::HighResolution);
  std::string file;
  if (QPrinterInfo::availablePrinterNames().isEmpty()) {
    file = nextPdf();
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(QString::fromStdString(paths_.toHost(file)));
  }
  printer.setDocName("Korvinel");
  printPicture(printer, picture, {x, y, width, height});
  if (!file.empty()) dialogs_.notice("Nessuna stampante installata.\rL'immagine e' nel file\r" + file);
}

/// A name that no file has yet.
std::string QtScreenPrinter::nextPdf() const {
  const std::string stem =
      "C:\\QUARVEL5\\DATAFILE\\Stampa-" + QDateTime::currentDateTime().toString("yyyyMMdd-HHmmss").toStdString();
  std::string path = stem + ".pdf";
  for (int number = 2; QFileInfo::exists(QString::fromStdString(paths_.toHost(path))); ++number)
    path = stem + "-" + std::to_string(number) + ".pdf";
  return path;
}

}  // namespace korvinel::platform
