#include "platform/qt/surface_painter.h"

#include <QPolygonF>
#include <algorithm>
#include <cmath>
#include <span>
#include <vector>

#include "platform/qt/qt_text.h"
#include "platform/qt/text_painter.h"

namespace korvinel::platform {
namespace {

QColor colourOf(Colour colour) { return toQt(rgbOf(colour)); }

class Painting {
 public:
  Painting(QPainter& painter, const Surface& surface, const QSizeF& size, qreal pixelRatio)
      : painter_(painter),
        surface_(surface),
        size_(size),
        scaleX_(size.width() / surface.width()),
        scaleY_(size.height() / surface.height()),
        pixelRatio_(pixelRatio),
        texts_(painter, surface, size, pixelRatio) {
    for (const Mark& mark : surface.marks())
      if (mark.kind == Mark::Kind::text) textMarks_.push_back(&mark);
  }

  void paint() {
    painter_.fillRect(QRectF({0, 0}, size_), colourOf(surface_.background()));
    paintShade();
    if (surface_.boxesLieBelow())
      for (const Mark& mark : surface_.marks())
        if (mark.kind == Mark::Kind::box) paintBox(mark);
    const std::span<const Mark> marks(surface_.marks());
    for (std::size_t next = 0; next < marks.size();) next += paintNext(marks, next);
  }

 private:
  /// Paints a mark, with the lines that continue from it; returns the number of marks painted.
  std::size_t paintNext(std::span<const Mark> marks, std::size_t index) {
    const Mark& mark = marks[index];
    switch (mark.kind) {
      case Mark::Kind::point: paintPoint(mark); break;
      case Mark::Kind::line: return paintLines(marks.subspan(index));
      case Mark::Kind::box:
        if (!surface_.boxesLieBelow()) paintBox(mark);
        break;
      case Mark::Kind::text: texts_.paint(mark, marks.first(index)); break;
    }
    return 1;
  }

  QPointF pixel(double x, double y) const { return {x * scaleX_, y * scaleY_}; }

  /// A point that only positions a text is not painted.
  [[nodiscard]] bool placesText(const Mark& point) const {
    return std::any_of(textMarks_.begin(), textMarks_.end(),
                       [&](const Mark* text) { return text->x1 == point.x1 && text->y1 == point.y1; });
  }

  void paintPoint(const Mark& mark) {
    if (placesText(mark)) return;
    const qreal side = std::max(1.0, std::floor(1.5 * pixelRatio_));
    const QPointF place = pixel(mark.x1, mark.y1);
    painter_.fillRect(QRectF(std::floor(place.x()), std::floor(place.y()), side, side), colourOf(mark.colour));
  }

  void paintShade() {
    constexpr float strength = 0.14F;
    const Surface::Shade& shade = surface_.shade();
    if (shade.x1 == shade.x2) return;
    QColor tint = colourOf(shade.colour);
    tint.setAlphaF(strength);
    painter_.fillRect(QRectF(pixel(shade.x1, 0), pixel(shade.x2, surface_.height())).normalized(), tint);
  }

  void paintBox(const Mark& mark) {
    const QPointF corner = pixel(std::min(mark.x1, mark.x2), std::min(mark.y1, mark.y2));
    const QPointF extent = pixel(std::abs(mark.x2 - mark.x1), std::abs(mark.y2 - mark.y1));
    // Boxes of one size cover the same number of pixels everywhere, so that a row of bars looks even.
    painter_.fillRect(QRectF(std::round(corner.x()), std::round(corner.y()), std::max(1.0, std::round(extent.x())),
                             std::max(1.0, std::round(extent.y()))),
                      colourOf(mark.colour));
  }

  static bool isUpright(const Mark& line) { return line.x1 == line.x2 || line.y1 == line.y2; }

  static std::size_t connectedLines(std::span<const Mark> marks) {
    std::size_t count = 1;
    const auto goesOn = [&](const Mark& mark, const Mark& before) {
      return mark.kind == Mark::Kind::line && mark.colour == before.colour && mark.x1 == before.x2 &&
             mark.y1 == before.y2;
    };
    while (count < marks.size() && goesOn(marks[count], marks[count - 1])) ++count;
    return count;
  }

  /// Frames and grid lines are aligned to pixels; a trace is one smooth line through its samples.
  std::size_t paintLines(std::span<const Mark> marks) {
    const auto lines = marks.first(connectedLines(marks));
    if (std::all_of(lines.begin(), lines.end(), isUpright))
      for (const Mark& line : lines) paintUprightLine(line);
    else
      paintTrace(lines);
    return lines.size();
  }

  void paintUprightLine(const Mark& line) {
    const qreal width = std::max(1.0, std::round(pixelRatio_));
    const QPointF from = pixel(std::min(line.x1, line.x2), std::min(line.y1, line.y2));
    const QPointF to = pixel(std::max(line.x1, line.x2), std::max(line.y1, line.y2));
    const QSizeF extent(std::floor(to.x()) - std::floor(from.x()) + width,
                        std::floor(to.y()) - std::floor(from.y()) + width);
    // Marks wholly beyond the edge are moved to it, such as the last line of a grid or a scale's ticks.
    const bool beyond = from.x() >= size_.width();
    const QPointF corner(
        beyond ? size_.width() - extent.width() : std::min(std::floor(from.x()), size_.width() - width),
        std::min(std::floor(from.y()), size_.height() - width));
    painter_.fillRect(QRectF(corner, extent), colourOf(line.colour));
  }

  void paintTrace(std::span<const Mark> lines) {
    QPolygonF trace;
    trace.reserve(static_cast<qsizetype>(lines.size()) + 1);
    trace << pixel(lines.front().x1, lines.front().y1);
    for (const Mark& line : lines) trace << pixel(line.x2, line.y2);
    painter_.setPen(
        QPen(colourOf(lines.front().colour), 1.2 * pixelRatio_, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter_.setRenderHint(QPainter::Antialiasing, true);
    painter_.drawPolyline(trace);
    painter_.setRenderHint(QPainter::Antialiasing, false);
  }

  QPainter& painter_;
  const Surface& surface_;
  QSizeF size_;
  double scaleX_, scaleY_;
  qreal pixelRatio_;
  TextPainter texts_;
  std::vector<const Mark*> textMarks_;
};

}  // namespace

void paintSurface(QPainter& painter, const Surface& surface, const QSizeF& size, qreal pixelRatio) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing, false);
  Painting(painter, surface, size, pixelRatio).paint();
  painter.restore();
}

}  // namespace korvinel::platform
