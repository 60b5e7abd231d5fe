#pragma once

#include <QPainter>
#include <QRectF>
#include <span>
#include <vector>

#include "platform/qt/placed_text.h"
#include "platform/surface.h"

namespace korvinel::platform {

/// Paints the texts of a surface over what has been painted of it. Letters are painted on the graph itself, with a thin
/// halo in the background's colour over other marks. They have an opaque cell, which hides the graph, only if the ink
/// could not be read on the background, or if they would cover other letters.
class TextPainter {
 public:
  /// `size`: pixels of the surface; `pixelRatio`: how many of them make one pixel of the layout. The painter and the
  /// surface must outlive this.
  TextPainter(QPainter& painter, const Surface& surface, const QSizeF& size, qreal pixelRatio)
      : painter_(painter), surface_(surface), size_(size), pixelRatio_(pixelRatio) {}

  /// `below`: the marks painted before it.
  void paint(const Mark& mark, std::span<const Mark> below);

 private:
  [[nodiscard]] QRectF pixels(const Mark& mark) const;
  [[nodiscard]] Rgb groundUnder(const QRectF& cell, std::span<const Mark> below) const;
  [[nodiscard]] bool standsOnLetters(const QRectF& cell) const;
  [[nodiscard]] bool standsOnMarks(const QRectF& cell, Rgb ground, std::span<const Mark> below) const;
  void paintHalo(const PlacedText& text, Rgb colour);

  QPainter& painter_;
  const Surface& surface_;
  QSizeF size_;
  qreal pixelRatio_;
  std::vector<QRectF> cells_;  ///< of the texts painted so far
};

}  // namespace korvinel::platform
