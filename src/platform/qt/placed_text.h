#pragma once

#include <QFont>
#include <QRectF>
#include <QStringList>

#include "platform/surface.h"

namespace korvinel::platform {

/// A text of a surface, laid out in a picture of it.
struct PlacedText {
  QFont font;
  QStringList rows;  ///< one, except for a long text on a surface whose texts stay in place
  QRectF cell;       ///< all rows, in pixels
  bool whole;        ///< nothing was left out

  [[nodiscard]] QRectF row(qsizetype index) const {
    const qreal height = cell.height() / static_cast<qreal>(rows.size());
    return {cell.left(), cell.top() + static_cast<qreal>(index) * height, cell.width(), height};
  }
};

/// Lays out a text mark of the surface in a picture of `size` pixels, in `font` at the size that fits. A text that is
/// too long is moved to the left and made smaller. A text that stays in place is made a little smaller, then broken
/// into as many rows as can be read above the next text, and finally shortened.
[[nodiscard]] PlacedText placedText(const Surface& surface, const Mark& text, const QFont& font, const QSizeF& size);

}  // namespace korvinel::platform
