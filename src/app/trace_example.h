#pragma once

#include <QWidget>
#include <vector>

namespace korvinel {

/// A small picture of a trace as the instrument shows it, good or bad, with its name below.
class TraceExample : public QWidget {
 public:
  enum class Kind { good, flat, saturated, hum, movement };

  TraceExample(Kind kind, const QString& name, const QString& meaning, QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  Kind kind_;
};

/// Half a second of the trace, one value for each of `count` places: -1 lower edge, 1 upper edge. At least 2 places.
[[nodiscard]] std::vector<double> exampleOf(TraceExample::Kind kind, int count);

}  // namespace korvinel
