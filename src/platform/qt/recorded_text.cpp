#include "platform/qt/recorded_text.h"

#include <QFontMetricsF>
#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>
#include <QWidget>
#include <algorithm>

namespace korvinel::platform {
namespace {

/// Keeps the texts of what is painted, and nothing else.
class TextEngine : public QPaintEngine {
 public:
  TextEngine() : QPaintEngine(AllFeatures) {}

  bool begin(QPaintDevice*) override { return true; }
  bool end() override { return true; }
  [[nodiscard]] Type type() const override { return User; }
  void updateState(const QPaintEngineState&) override {}  // the state is read at each text
  void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
  void drawImage(const QRectF&, const QImage&, const QRectF&, Qt::ImageConversionFlags) override {}
  void drawPath(const QPainterPath&) override {}
  void drawPolygon(const QPointF*, int, PolygonDrawMode) override {}
  void drawRects(const QRectF*, int) override {}

  void drawTextItem(const QPointF& place, const QTextItem& item) override {
    if (item.text().trimmed().isEmpty()) return;
    texts.push_back({item.text(), state->transform().map(place), item.width(),
                     static_cast<double>(item.ascent() + item.descent())});
  }

  std::vector<RecordedText> texts;
};

/// Has the measures of the window, so that its letters are the same.
class TextDevice : public QPaintDevice {
 public:
  explicit TextDevice(const QWidget& window) : window_(window) {}
  [[nodiscard]] QPaintEngine* paintEngine() const override { return &engine_; }
  [[nodiscard]] std::vector<RecordedText> texts() const { return engine_.texts; }

 protected:
  [[nodiscard]] int metric(PaintDeviceMetric metric) const override {
    switch (metric) {
      case PdmWidth: return window_.width();
      case PdmHeight: return window_.height();
      case PdmWidthMM: return window_.widthMM();
      case PdmHeightMM: return window_.heightMM();
      case PdmDepth: return 32;
      case PdmDevicePixelRatioScaled: return static_cast<int>(devicePixelRatioFScale());
      case PdmDevicePixelRatio: return 1;
      case PdmDpiX:
      case PdmPhysicalDpiX: return window_.logicalDpiX();
      case PdmDpiY:
      case PdmPhysicalDpiY: return window_.logicalDpiY();
      default: return QPaintDevice::metric(metric);
    }
  }

 private:
  const QWidget& window_;
  mutable TextEngine engine_;
};

}  // namespace

std::vector<RecordedText> textsOf(QWidget& window) {
  TextDevice device(window);
  window.render(&device);
  return device.texts();
}

void paintForSearching(QPainter& painter, const std::vector<RecordedText>& texts) {
  QFont letters = painter.font();
  for (const RecordedText& each : texts) {
    letters.setPixelSize(std::max(1, static_cast<int>(each.height * 0.8)));
    const double natural = QFontMetricsF(letters).horizontalAdvance(each.text);
    painter.save();
    painter.setFont(letters);
    painter.translate(each.begin);
    if (natural > 0) painter.scale(each.width / natural, 1);
    painter.drawText(QPointF(0, 0), each.text);
    painter.restore();
  }
}

}  // namespace korvinel::platform
