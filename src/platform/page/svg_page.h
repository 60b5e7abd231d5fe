#pragma once

#include <QByteArray>
#include <QPaintDevice>
#include <QSize>
#include <QString>
#include <memory>

namespace korvinel::platform {

class SvgEngine;

/// A page for a painter that becomes an SVG file: filled rectangles, lines and texts, which is all that surfaces need.
/// Clipping and pictures are ignored.
class SvgPage : public QPaintDevice {
 public:
  SvgPage(const QString& title, const QSize& size);
  ~SvgPage() override;

  [[nodiscard]] QPaintEngine* paintEngine() const override;
  [[nodiscard]] QByteArray bytes() const;  ///< the file's; after the painter's end

 protected:
  [[nodiscard]] int metric(PaintDeviceMetric metric) const override;

 private:
  QString title_;
  QSize size_;
  std::unique_ptr<SvgEngine> engine_;
};

}  // namespace korvinel::platform
