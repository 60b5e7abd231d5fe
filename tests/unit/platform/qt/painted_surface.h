#pragma once

#include <QImage>
#include <QPainter>

#include "platform/qt/surface_painter.h"

namespace korvinel::platform {

constexpr QRgb white = 0xFFFFFFFF, black = 0xFF000000, blue = 0xFF000080, yellow = 0xFFFFFF00, grey = 0xFF808080;

inline QImage pictureOf(const Surface& surface, int width, int height, qreal pixelRatio = 1) {
  QImage image(width, height, QImage::Format_RGB32);
  QPainter painter(&image);
  paintSurface(painter, surface, QSizeF(width, height), pixelRatio);
  return image;
}

/// The smallest rectangle with all pixels of a colour.
inline QRect placeOf(const QImage& image, QRgb colour) {
  QRect place;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x)
      if (image.pixel(x, y) == colour) place |= QRect(x, y, 1, 1);
  return place;
}

inline int countOf(const QImage& image, QRgb colour) {
  int count = 0;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x) count += image.pixel(x, y) == colour ? 1 : 0;
  return count;
}

/// Like the report's ground: a line of 18 units every 33 units.
inline Surface linesOfAReport(const std::string& name) {
  Surface surface("a", 1200, 900, 18);
  surface.keepTextsInPlace();
  surface.printAt(880, 47, Colour::blue, "File: esame");
  surface.printAt(880, 80, Colour::blue, "Nome: " + name);
  surface.printAt(880, 113, Colour::blue, "Data: 21/11/2026");
  return surface;
}

}  // namespace korvinel::platform
