#include "platform/qt/placed_text.h"

#include <QFontMetricsF>
#include <algorithm>
#include <cmath>

#include "platform/qt/fitted_text.h"
#include "platform/qt/qt_text.h"

namespace korvinel::platform {
namespace {

constexpr qreal noLimit = 1e9;
constexpr qreal least = 0.7;  ///< of the full size: smaller letters cannot be read

qreal widthOf(const QFont& font, const QString& text) { return QFontMetricsF(font).horizontalAdvance(text); }

/// The largest font whose lines are no higher than this, and whose `text` is no wider than the area.
QFont fontFor(QFont font, const QString& text, qreal lineHeight, qreal room) {
  const auto tooLarge = [&] { return QFontMetricsF(font).height() > lineHeight + 0.5 || widthOf(font, text) > room; };
  int size = std::max(1, static_cast<int>(lineHeight));
  font.setPixelSize(size);
  while (size > 1 && tooLarge()) font.setPixelSize(--size);
  return font;
}

/// User units from the text's top to the next text of its column, or to the bottom of the surface.
double roomBelow(const Surface& surface, const Mark& text) {
  double end = surface.height();
  for (const Mark& mark : surface.marks())
    if (mark.kind == Mark::Kind::text && mark.x1 == text.x1 && mark.y1 > text.y1) end = std::min(end, mark.y1);
  return std::max(surface.lineHeight(), end - text.y1);
}

/// The area available to a text, in pixels.
struct Room {
  qreal lineHeight, width, height;
};

struct Rows {
  QFont font;
  QStringList texts;
  qreal height;  ///< of each
  bool whole;
};

/// One row, shortened if it is too wide even in the smallest letters.
Rows inOneRow(const QFont& base, const QString& text, const Room& room) {
  const QFont full = fontFor(base, text, room.lineHeight, noLimit);
  const QFont font = fontFor(base, text, room.lineHeight, std::max(room.width, least * widthOf(full, text)));
  const QString shown = QFontMetricsF(font).elidedText(text, Qt::ElideRight, room.width);
  return {font, {shown}, room.lineHeight, shown == text};
}

/// At most `count` rows, in letters of that size; shortened at the end if the text does not fit.
Rows inRows(const QFont& base, const QString& text, const Room& room, int count) {
  const qreal height = std::min(room.lineHeight, room.height / count);
  const QFont font = fontFor(base, text, height, noLimit);
  const int width = static_cast<int>(room.width);
  QStringList rows = brokenLines(font, text, width);
  if (rows.size() > count) rows = brokenLines(font, text, width, QTextOption::WrapAnywhere);
  if (rows.size() <= count) return {font, rows, height, true};
  const QString rest = rows.mid(count - 1).join("");
  rows = rows.mid(0, count - 1);
  rows << QFontMetricsF(font).elidedText(rest, Qt::ElideRight, room.width);
  return {font, rows, height, false};
}

/// One row, if its letters stay nearly as large as its neighbours'; else as few rows as the text needs.
Rows inItsPlace(const QFont& base, const QString& text, const Room& room) {
  constexpr qreal nearly = 0.8;
  const qreal full = fontFor(base, text, room.lineHeight, noLimit).pixelSize();
  Rows best = inOneRow(base, text, room);
  for (int count = 2; !best.whole || best.font.pixelSize() < nearly * full; ++count) {
    Rows rows = inRows(base, text, room, count);
    const bool worse = best.whole && rows.font.pixelSize() <= best.font.pixelSize();
    if (worse || rows.font.pixelSize() < least * full) break;
    best = std::move(rows);
  }
  return best;
}

/// One row, moved to the left before it becomes much smaller than its neighbours.
Rows whereItFits(const QFont& base, const QString& text, const Room& room, qreal pictureWidth) {
  constexpr qreal leastBesideOthers = 0.8;
  const QFont full = fontFor(base, text, room.lineHeight, pictureWidth);
  const qreal leastRoom = leastBesideOthers * widthOf(full, text);
  return {fontFor(base, text, room.lineHeight, std::max(room.width, leastRoom)), {text}, room.lineHeight, true};
}

}  // namespace

PlacedText placedText(const Surface& surface, const Mark& text, const QFont& font, const QSizeF& size) {
  const qreal scaleY = size.height() / surface.height();
  QPointF place(text.x1 * size.width() / surface.width(), text.y1 * scaleY);
  const Room room{surface.lineHeight() * scaleY, size.width() - place.x(), roomBelow(surface, text) * scaleY};
  const QString words = toQt(text.text);
  const Rows rows = surface.textsStay() ? inItsPlace(font, words, room) : whereItFits(font, words, room, size.width());
  const qreal height = rows.height * static_cast<qreal>(rows.texts.size());
  int width = 0;
  for (const QString& row : rows.texts) width = std::max(width, QFontMetrics(rows.font).horizontalAdvance(row));
  place.setX(std::floor(std::max(0.0, std::min(place.x(), size.width() - width))));
  place.setY(std::floor(std::max(0.0, std::min(place.y(), size.height() - height))));
  return {rows.font, rows.texts, QRectF(place, QSizeF(width, std::round(height))), rows.whole};
}

}  // namespace korvinel::platform
