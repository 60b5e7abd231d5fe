#include "platform/page/page_writer.h"

#include <QBuffer>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QImage>
#include <QImageWriter>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>
#include <algorithm>
#include <clocale>
#include <cmath>
#include <iostream>

#include "platform/page/svg_page.h"
#include "platform/qt/appearance.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/surface_painter.h"

namespace korvinel::platform {
namespace {

constexpr double dotsPerUnit = 2;  // of pictures, as on a high-density screen

/// Only the toolkit's last message before it ends the program; the others are for programmers.
void tellWhatEndsTheProgram(QtMsgType type, const QMessageLogContext&, const QString& message) {
  if (type == QtFatalMsg) std::cerr << message.toStdString() << std::endl;
}

void startToolkit() {
  if (QGuiApplication::instance() == nullptr) {
    static int count = 1;
    static char name[] = "korvinel";
    static char* arguments[] = {name, nullptr};
    // Without a screen if the toolkit supports that; on Windows, where it does not, a program without windows needs
    // none.
    qputenv("QT_QPA_PLATFORM", "offscreen;windows");
    qInstallMessageHandler(tellWhatEndsTheProgram);
    static QGuiApplication toolkit(count, arguments);
    std::setlocale(LC_NUMERIC, "C");
  }
  if (QFontDatabase::families().isEmpty()) throw PageFault(PageFailure::noFont);
}

/// `scale`: units of the painter in one unit of the page.
void paintPage(QPainter& painter, const Page& page, double scale) {
  const auto paint = [&](const Surface& surface, const Rect& place) {
    painter.save();
    painter.translate(std::round(place.x * scale), std::round(place.y * scale));
    const QSizeF size(std::round(place.width * scale), std::round(place.height * scale));
    painter.setClipRect(
        QRectF(0, 0, size.width(), std::min(size.height(), std::round((page.height - place.y) * scale))));
    paintSurface(painter, surface, size, scale);
    painter.restore();
  };
  paint(*page.ground, {0, 0, static_cast<int>(page.ground->width()), static_cast<int>(page.ground->height())});
  for (const auto& [surface, place] : page.placed) paint(*surface, place);
}

void paintOn(QPaintDevice& device, const Page& page, double scale, const QPointF& corner) {
  QPainter painter;
  if (!painter.begin(&device)) throw PageFault(PageFailure::notBegun);
  painter.setFont(calmLetters());
  painter.translate(corner);
  paintPage(painter, page, scale);
  if (!painter.end()) throw PageFault(PageFailure::notFinished);
}

/// On A4 across, as large as the margins allow.
void writePdf(const Page& page, QIODevice& file) {
  constexpr int dotsPerInch = 300;
  constexpr double margin = 10;  // millimetres
  QPdfWriter writer(&file);
  writer.setTitle(toQt(page.title));
  writer.setCreator("Korvinel");
  writer.setResolution(dotsPerInch);
  writer.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Landscape,
                                   QMarginsF(margin, margin, margin, margin), QPageLayout::Millimeter));
  const double scale =
      std::min(writer.width() / page.ground->width(), static_cast<double>(writer.height()) / page.height);
  paintOn(writer, page, scale, {(writer.width() - page.ground->width() * scale) / 2, 0});
}

void writeSvg(const Page& page, QIODevice& file) {
  SvgPage svg(toQt(page.title),
              {static_cast<int>(page.ground->width() * dotsPerUnit), static_cast<int>(page.height * dotsPerUnit)});
  paintOn(svg, page, dotsPerUnit, {0, 0});
  file.write(svg.bytes());
}

void writePng(const Page& page, QIODevice& file) {
  QImage picture(static_cast<int>(page.ground->width() * dotsPerUnit), static_cast<int>(page.height * dotsPerUnit),
                 QImage::Format_RGB32);
  paintOn(picture, page, dotsPerUnit, {0, 0});
  QImageWriter writer(&file, "png");
  if (!writer.write(picture)) throw PageFault(PageFailure::notEncoded, writer.errorString().toStdString());
}

}  // namespace

std::string pageBytes(const Page& page, PageFormat format) {
  startToolkit();
  QBuffer file;
  file.open(QIODevice::WriteOnly);
  switch (format) {
    case PageFormat::pdf: writePdf(page, file); break;
    case PageFormat::svg: writeSvg(page, file); break;
    case PageFormat::png: writePng(page, file); break;
  }
  return file.data().toStdString();
}

}  // namespace korvinel::platform
