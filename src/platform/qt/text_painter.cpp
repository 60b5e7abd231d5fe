#include "platform/qt/text_painter.h"

#include <QFontMetricsF>
#include <QPainterPath>
#include <algorithm>
#include <cmath>

#include "platform/qt/qt_text.h"

namespace korvinel::platform {

/// The largest font whose lines are no higher than this, and whose `text` is no wider than the surface allows.
QFont TextPainter::fontFor(const QString& text, qreal lineHeight, qreal room) const {
  QFont font = painter_.font();
  const auto tooLarge = [&] {
    const QFontMetricsF metrics(font);
    return metrics.height() > lineHeight + 0.5 || metrics.horizontalAdvance(text) > room;
  };
  int size = std::max(1, static_cast<int>(lineHeight));
  font.setPixelSize(size);
  while (size > 1 && tooLarge()) font.setPixelSize(--size);
  return font;
}

/// Sets the font and gives the text as it fits: it is moved to the left before it gets much smaller than its
/// neighbours, or shortened where it must stay.
QString TextPainter::fit(const QString& text, qreal lineHeight, qreal room) {
  constexpr qreal noLimit = 1e9;
  const bool stays = surface_.textsStay();
  const QFont full = fontFor(text, lineHeight, stays ? noLimit : size_.width());
  const qreal leastRoom = QFontMetricsF(full).horizontalAdvance(text) * (stays ? 0.7 : 0.8);
  painter_.setFont(fontFor(text, lineHeight, std::max(room, leastRoom)));
  return stays ? painter_.fontMetrics().elidedText(text, Qt::ElideRight, static_cast<int>(room)) : text;
}

QRectF TextPainter::pixels(const Mark& mark) const {
  const qreal scaleX = size_.width() / surface_.width();
  const qreal scaleY = size_.height() / surface_.height();
  return QRectF(QPointF(mark.x1 * scaleX, mark.y1 * scaleY), QPointF(mark.x2 * scaleX, mark.y2 * scaleY)).normalized();
}

/// Where the text stands; `text` becomes what fits there, in the font that is set.
QRectF TextPainter::cellOf(const Mark& mark, QString& text) {
  const qreal lineHeight = surface_.lineHeight() * size_.height() / surface_.height();
  QPointF place(mark.x1 * size_.width() / surface_.width(), mark.y1 * size_.height() / surface_.height());
  text = fit(toQt(mark.text), lineHeight, size_.width() - place.x());
  const qreal width = painter_.fontMetrics().horizontalAdvance(text);
  place.setX(std::floor(std::max(0.0, std::min(place.x(), size_.width() - width))));
  place.setY(std::floor(std::max(0.0, std::min(place.y(), size_.height() - lineHeight))));
  return {place, QSizeF(std::ceil(width), std::round(lineHeight))};
}

/// The colour of the last box that lies under most of the cell, else the surface's own.
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

/// Whether anything in another colour than the ground's may lie behind the letters.
bool TextPainter::standsOnMarks(const QRectF& cell, Rgb ground, std::span<const Mark> below) const {
  const qreal reach = 2 * pixelRatio_;
  return std::any_of(below.begin(), below.end(), [&](const Mark& mark) {
    return mark.kind != Mark::Kind::text && rgbOf(mark.colour) != ground &&
           pixels(mark).adjusted(-reach, -reach, reach, reach).intersects(cell);
  });
}

void TextPainter::paintHalo(const QRectF& cell, const QString& text, Rgb colour) {
  const QFontMetricsF metrics(painter_.font());
  const qreal ascent = (cell.height() - metrics.height()) / 2 + metrics.ascent();
  QPainterPath letters;
  letters.addText(cell.topLeft() + QPointF(0, ascent), painter_.font(), text);
  painter_.setRenderHint(QPainter::Antialiasing, true);
  painter_.strokePath(letters, QPen(toQt(colour), 3 * pixelRatio_, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter_.setRenderHint(QPainter::Antialiasing, false);
}

void TextPainter::paint(const Mark& mark, std::span<const Mark> below) {
  QString text;
  const QRectF cell = cellOf(mark, text);
  const Rgb ink = rgbOf(mark.colour);
  const Rgb ground = groundUnder(cell, below);
  const Rgb readable = cellBehind(ink, ground);
  if (readable != ground || standsOnLetters(cell))
    painter_.fillRect(cell, toQt(readable));
  else if (standsOnMarks(cell, ground, below))
    paintHalo(cell, text, ground);
  cells_.push_back(cell);
  painter_.setPen(toQt(ink));
  painter_.drawText(cell, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextDontClip, text);
}

}  // namespace korvinel::platform
