#pragma once

#include <QFont>
#include <QRectF>
#include <QStringList>

#include "platform/surface.h"

namespace korvinel::platform {

/// A text of a surface as it stands in a picture of it.
struct PlacedText {
  QFont font;
  QStringList rows;  ///< one, except of a long text on a surface whose texts stay in place
  QRectF cell;       ///< all rows, in pixels
  bool whole;        ///< nothing had to be left out

  [[nodiscard]] QRectF row(qsizetype index) const {
    const qreal height = cell.height() / static_cast<qreal>(rows.size());
    return {cell.left(), cell.top() + static_cast<qreal>(index) * height, cell.width(), height};
  }
};

/// Places a text mark of the surface in a picture of `size` pixels, in the letters of `font` at the size that fits. A
/// text that is too long is moved to the left and set smaller. One that stays in place is set a little smaller, then in
/// rows, as many as can be read down to the text below it, and at last shortened.
[[nodiscard]] PlacedText placedText(const Surface& surface, const Mark& text, const QFont& font, const QSizeF& size);

}  // namespace korvinel::platform
