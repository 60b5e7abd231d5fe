#include "platform/qt/qt_screen_printer.h"

#include <QApplication>
#include <QBuffer>
#include <QClipboard>
#include <QDateTime>
#include <QFileInfo>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <QPrinterInfo>
#include <QWindow>
#include <algorithm>
#include <cmath>
#include <stdexcept>

#include "platform/qt/new_file.h"
#include "platform/qt/page_note.h"
#include "platform/qt/printed_part.h"
#include "platform/qt/recorded_text.h"

namespace korvinel::platform {
namespace {

/// Why nothing was printed, in Italian; it does not leave this file.
struct NotPrinted : std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// A window that waits for no answer: not a box, a tool tip or a drop-down list.
bool isWindow(const QWidget* widget) {
  return widget != nullptr && widget->isVisible() && !widget->isModal() &&
         (widget->windowType() == Qt::Window || widget->windowType() == Qt::Dialog);
}

int owners(const QWidget* window) {
  int count = 0;
  while ((window = window->parentWidget()) != nullptr) ++count;
  return count;
}

/// The window in front of the others, to which it belongs.
QWidget* windowOnTop() {
  QWidget* top = nullptr;
  for (QWidget* window : QApplication::topLevelWidgets())
    if (isWindow(window) && (top == nullptr || owners(window) > owners(top))) top = window;
  return top;
}

/// The window with letters and lines at the resolution of paper.
QImage paintedForPaper(QWidget& window) {
  constexpr double dotsAcross = 2600;  // some 350 an inch
  const qreal ratio = std::clamp(std::ceil(dotsAcross / window.width()), window.devicePixelRatioF(), 4.0);
  QImage picture(window.size() * ratio, QImage::Format_RGB32);
  picture.setDevicePixelRatio(ratio);
  window.render(&picture);
  return picture;
}

/// `place`: millimetres from the page's corner; the device paints from there.
void paintPicture(QPagedPaintDevice& page, QImage picture, const QRectF& place, const std::string& note,
                  const WindowTexts& under = {}) {
  constexpr double millimetresPerInch = 25.4;
  picture.setDevicePixelRatio(1);
  const double dots = page.logicalDpiX() / millimetresPerInch;
  QPainter painter;
  if (!painter.begin(&page)) throw NotPrinted("La pagina non si può cominciare.");
  painter.setRenderHints(QPainter::SmoothPixmapTransform | QPainter::LosslessImageRendering);
  const QRectF area(place.x() * dots, place.y() * dots, place.width() * dots, place.height() * dots);
  if (!under.texts.empty()) {
    painter.save();
    painter.translate(area.topLeft());
    painter.scale(area.width() / under.window.width(), area.height() / under.window.height());
    paintForSearching(painter, under.texts);
    painter.restore();
  }
  painter.drawImage(area, picture);
  paintPageNote(painter, QString::fromStdString(note), area, dots);
  if (!painter.end()) throw NotPrinted("La stampante non ha preso la pagina.");
}

void printPicture(const QImage& picture, const QRectF& place, const std::string& note) {
  QPrinter printer(QPrinter::HighResolution);
  printer.setDocName("Korvinel");
  printer.setFullPage(true);
  paintPicture(printer, picture, place, note);
  if (printer.printerState() == QPrinter::Error) throw NotPrinted("La stampante non ha preso la pagina.");
}

QByteArray pdfOf(const QImage& picture, const QRectF& place, const std::string& note, const WindowTexts& texts) {
  QBuffer file;
  file.open(QIODevice::WriteOnly);
  QPdfWriter writer(&file);
  writer.setTitle("Korvinel");
  writer.setPageSize(QPageSize(QPageSize::A4));
  writer.setPageMargins({});
  paintPicture(writer, picture, place, note, texts);
  return file.data();
}

}  // namespace

QtScreenPrinter::QtScreenPrinter(Dialogs& dialogs, PathNotation paths, Text dataFileName, Text pageNote)
    : dialogs_(dialogs),
      paths_(std::move(paths)),
      dataFileName_(std::move(dataFileName)),
      pageNote_(std::move(pageNote)) {
  QObject::connect(qApp, &QGuiApplication::focusWindowChanged, &watch_, [this] {
    if (isWindow(QApplication::activeWindow())) lastActive_ = QApplication::activeWindow();
  });
}

/// That of the newer family of systems, whatever this system's own version.
int QtScreenPrinter::systemMajorVersion() { return 10; }

void QtScreenPrinter::emptyClipboard() {
  QApplication::clipboard()->clear();
  captured_ = sharp_ = QImage();
}

/// The active window. If a box has just closed there may be none yet: then the one active before it.
QWidget* QtScreenPrinter::windowToPrint() const {
  if (isWindow(QApplication::activeWindow())) return QApplication::activeWindow();
  return isWindow(lastActive_) ? lastActive_.data() : windowOnTop();
}

void QtScreenPrinter::pressPrintScreen(int) {
  QWidget* window = pageOf(windowToPrint());
  if (window == nullptr) return;
  showAidsOfTheKeyboard(*window, false);
  captured_ = window->grab().toImage();
  sharp_ = paintedForPaper(*window);
  texts_ = {textsOf(*window), window->size()};
  showAidsOfTheKeyboard(*window, true);
  QApplication::clipboard()->setImage(captured_);
}

void QtScreenPrinter::printClipboard(double x, double y, double width, double height) {
  try {
    const std::string file = print({x, y, width, height});
    if (!file.empty()) dialogs_.notice("Nessuna stampante installata.\rL'immagine è nel file\r" + file);
  } catch (const NotPrinted& fault) {
    dialogs_.notice(std::string("La stampa non è riuscita.\r") + fault.what());
  }
}

std::string QtScreenPrinter::print(const QRectF& millimetres) {
  const QImage picture = pictureToPrint();
  if (picture.isNull()) throw NotPrinted("Non c'è un'immagine da stampare.");
  if (QPrinterInfo::availablePrinterNames().isEmpty()) return printIntoFile(picture, millimetres);
  printPicture(picture, millimetres, pageNote_());
  return "";
}

std::string QtScreenPrinter::printIntoFile(const QImage& picture, const QRectF& millimetres) const {
  std::string file = nextPdf();
  const bool isOurCapture = !sharp_.isNull() && picture == sharp_;
  const QByteArray pdf = pdfOf(picture, millimetres, pageNote_(), isOurCapture ? texts_ : WindowTexts{});
  constexpr qint64 roomForRecordings = 10'000'000;  // about ten examinations
  switch (writeNewFile(QString::fromStdString(paths_.toHost(file)), pdf, roomForRecordings)) {
    case NewFile::written: return file;
    case NewFile::noRoom: throw NotPrinted("Lo spazio su disco è poco e serve alle registrazioni:\r" + file);
    case NewFile::failed: break;
  }
  throw NotPrinted("Il file non si può scrivere:\r" + file);
}

/// The clipboard's picture, or, as long as that is our capture, the finer painting of it.
QImage QtScreenPrinter::pictureToPrint() const {
  const QImage picture = QApplication::clipboard()->image();
  return !sharp_.isNull() && picture == captured_ ? sharp_ : picture;
}

/// An unused file name.
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
