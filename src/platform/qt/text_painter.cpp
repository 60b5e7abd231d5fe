#include "platform/qt/text_painter.h"

#include <QFontMetricsF>
#include <QPainterPath>
#include <algorithm>
#include <cmath>

#include "platform/qt/qt_text.h"

namespace korvinel::platform {

QRectF TextPainter::pixels(const Mark& mark) const {
  const qreal scaleX = size_.width() / surface_.width();
  const qreal scaleY = size_.height() / surface_.height();
  return QRectF(QPointF(mark.x1 * scaleX, mark.y1 * scaleY), QPointF(mark.x2 * scaleX, mark.y2 * scaleY)).normalized();
}

/// The colour of the last box under most of the cell, else the surface's own.
Rgb TextPainter::groundUnder(const QRectF& cell, std::span<const Mark> below) const {
  Colour colour = surface_.background();
  for (const Mark& mark : below) {
    if (mark.kind != Mark::Kind::box) continue;
    const QRectF common = pixels(mark).intersected(cell);
    if (2 * common.width() * common.height() > cell.width() * cell.height()) colour = mark.colour;
  }
  return rgbOf(colour);
}

/// Lines of a text may touch.
bool TextPainter::standsOnLetters(const QRectF& cell) const {
  return std::any_of(cells_.begin(), cells_.end(), [&](const QRectF& other) {
    const QRectF common = other.intersected(cell);
    return common.width() > 1 && common.height() > cell.height() / 4;
  });
}

/// Whether there may be anything behind the letters in another colour than the background's.
bool TextPainter::standsOnMarks(const QRectF& cell, Rgb ground, std::span<const Mark> below) const {
  const qreal reach = 2 * pixelRatio_;
  return std::any_of(below.begin(), below.end(), [&](const Mark& mark) {
    return mark.kind != Mark::Kind::text && rgbOf(mark.colour) != ground &&
           pixels(mark).adjusted(-reach, -reach, reach, reach).intersects(cell);
  });
}

void TextPainter::paintHalo(const PlacedText& text, Rgb colour) {
  const QFontMetricsF metrics(text.font);
  QPainterPath letters;
  for (qsizetype i = 0; i < text.rows.size(); ++i) {
    const QRectF row = text.row(i);
    const qreal ascent = (row.height() - metrics.height()) / 2 + metrics.ascent();
    letters.addText(row.topLeft() + QPointF(0, ascent), text.font, text.rows[i]);
  }
  painter_.setRenderHint(QPainter::Antialiasing, true);
  painter_.strokePath(letters, QPen(toQt(colour), 3 * pixelRatio_, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter_.setRenderHint(QPainter::Antialiasing, false);
}

void TextPainter::paint(const Mark& mark, std::span<const Mark> below) {
  const PlacedText text = placedText(surface_, mark, painter_.font(), size_);
  const Rgb ink = rgbOf(mark.colour);
  const Rgb ground = groundUnder(text.cell, below);
  const Rgb readable = cellBehind(ink, ground);
  if (readable != ground || standsOnLetters(text.cell))
    painter_.fillRect(text.cell, toQt(readable));
  else if (standsOnMarks(text.cell, ground, below))
    paintHalo(text, ground);
  cells_.push_back(text.cell);
  painter_.setPen(toQt(ink));
  painter_.setFont(text.font);
  for (qsizetype i = 0; i < text.rows.size(); ++i)
    painter_.drawText(text.row(i), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextDontClip, text.rows[i]);
}

}  // namespace korvinel::platform
