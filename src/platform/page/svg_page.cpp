#include "platform/page/svg_page.h"

#include <QFontInfo>
#include <QPaintEngine>
#include <QPainter>
#include <QPainterPath>
#include <QStringList>
#include <cmath>
#include <limits>
#include <span>

namespace korvinel::platform {
namespace {

constexpr int dotsPerInch = 96;  // SVG's own

/// Short, and exact to a hundredth of a pixel.
QString number(double value) { return QString::number(std::round(value * 100) / 100, 'g', 8); }

QString attribute(const char* name, const QString& value) {
  return QStringLiteral(" %1=\"%2\"").arg(QLatin1String(name), value.toHtmlEscaped());
}

QString attribute(const char* name, double value) { return attribute(name, number(value)); }

/// One step of a path, to a tenth of a pixel.
QString step(const QPainterPath::Element& element) {
  const char* letter = element.isMoveTo() ? "M" : element.isLineTo() ? "L" : element.isCurveTo() ? "C" : " ";
  return QStringLiteral("%1%2,%3").arg(QLatin1String(letter)).arg(element.x, 0, 'f', 1).arg(element.y, 0, 'f', 1);
}

/// Characters not allowed in XML become the replacement character.
QString legal(QString text) {
  for (QChar& letter : text)
    if (letter.unicode() < 0x20 || letter.unicode() >= 0xFFFE) letter = QChar::ReplacementCharacter;
  return text.toHtmlEscaped();
}

/// The font family painted with, then the preferred ones, in case it is missing.
QString familiesOf(const QFont& font) {
  QStringList names = {QFontInfo(font).family()};
  names << font.families();
  names.removeDuplicates();
  QStringList quoted;
  for (const QString& name : names) quoted << QStringLiteral("'%1'").arg(name);
  return quoted.join(QStringLiteral(", ")) + QStringLiteral(", sans-serif");
}

}  // namespace

/// Writes one element for each painted item.
class SvgEngine : public QPaintEngine {
 public:
  SvgEngine() : QPaintEngine(AllFeatures) {}

  bool begin(QPaintDevice*) override {
    body_.clear();
    return true;
  }
  bool end() override { return true; }
  [[nodiscard]] Type type() const override { return User; }
  void updateState(const QPaintEngineState&) override {}  // the state is read at each element
  void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}

  void drawRects(const QRectF* rects, int count) override {
    for (const QRectF& untransformed : std::span(rects, static_cast<std::size_t>(count))) {
      const QRectF visible = insideClip(untransformed);
      if (visible.isEmpty()) continue;
      const QRectF rect = state->transform().mapRect(visible);
      body_ += QStringLiteral("<rect") + attribute("x", rect.x()) + attribute("y", rect.y()) +
               attribute("width", rect.width()) + attribute("height", rect.height()) +
               attribute("fill", state->brush().color().name()) + QStringLiteral("/>\n");
    }
  }

  void drawPolygon(const QPointF* points, int count, PolygonDrawMode) override {
    const QPen pen = state->pen();
    QStringList places;
    for (const QPointF& untransformed : std::span(points, static_cast<std::size_t>(count))) {
      const QPointF point = state->transform().map(untransformed);
      if (std::isfinite(point.x()) && std::isfinite(point.y())) places << number(point.x()) + ',' + number(point.y());
    }
    body_ += QStringLiteral("<polyline") + attribute("points", places.join(' ')) +
             attribute("stroke", pen.color().name()) + attribute("stroke-width", pen.widthF()) +
             QStringLiteral(" fill=\"none\" stroke-linecap=\"round\" stroke-linejoin=\"round\"/>\n");
  }

  /// Outlines of letters.
  void drawPath(const QPainterPath& untransformed) override {
    const QPainterPath path = state->transform().map(untransformed);
    QString steps;
    for (int i = 0; i < path.elementCount(); ++i) steps += step(path.elementAt(i));
    body_ += QStringLiteral("<path") + attribute("d", steps) + attribute("stroke", state->pen().color().name()) +
             attribute("stroke-width", state->pen().widthF()) +
             QStringLiteral(" fill=\"none\" stroke-linejoin=\"round\"/>\n");
  }

  void drawTextItem(const QPointF& untransformed, const QTextItem& item) override {
    const QPointF place = state->transform().map(untransformed);
    const QFont font = item.font();
    body_ += QStringLiteral("<text xml:space=\"preserve\"") + attribute("x", place.x()) + attribute("y", place.y()) +
             attribute("fill", state->pen().color().name()) + attribute("font-family", familiesOf(font)) +
             attribute("font-size", QFontInfo(font).pixelSize()) + '>' + legal(item.text()) +
             QStringLiteral("</text>\n");
  }

  [[nodiscard]] const QString& body() const { return body_; }

 private:
  /// A bar beyond the full scale ends at its panel's edge.
  [[nodiscard]] QRectF insideClip(const QRectF& rect) const {
    return painter()->hasClipping() ? rect.intersected(painter()->clipBoundingRect()) : rect;
  }

  QString body_;
};

SvgPage::SvgPage(const QString& title, const QSize& size)
    : title_(title), size_(size), engine_(std::make_unique<SvgEngine>()) {}

SvgPage::~SvgPage() = default;

QPaintEngine* SvgPage::paintEngine() const { return engine_.get(); }

QByteArray SvgPage::bytes() const {
  const QString head = QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n") +
                       QStringLiteral("<svg xmlns=\"http://www.w3.org/2000/svg\"") + attribute("width", size_.width()) +
                       attribute("height", size_.height()) +
                       attribute("viewBox", QStringLiteral("0 0 %1 %2").arg(size_.width()).arg(size_.height())) +
                       QStringLiteral(">\n<title>") + legal(title_) + QStringLiteral("</title>\n");
  return (head + engine_->body() + QStringLiteral("</svg>\n")).toUtf8();
}

int SvgPage::metric(PaintDeviceMetric metric) const {
  const auto millimetres = [](int dots) { return static_cast<int>(std::lround(dots * 25.4 / dotsPerInch)); };
  switch (metric) {
    case PdmWidth: return size_.width();
    case PdmHeight: return size_.height();
    case PdmWidthMM: return millimetres(size_.width());
    case PdmHeightMM: return millimetres(size_.height());
    case PdmDpiX:
    case PdmDpiY:
    case PdmPhysicalDpiX:
    case PdmPhysicalDpiY: return dotsPerInch;
    case PdmNumColors: return std::numeric_limits<int>::max();
    case PdmDepth: return 32;
    case PdmDevicePixelRatio: return 1;
    case PdmDevicePixelRatioScaled: return static_cast<int>(devicePixelRatioFScale());
    default: return QPaintDevice::metric(metric);
  }
}

}  // namespace korvinel::platform
