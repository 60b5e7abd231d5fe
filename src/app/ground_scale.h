#pragma once

#include <QWidget>
#include <span>

#include "guidance/captions.h"

namespace korvinel {

/// A scale on the window's ground, at the right of a graph: a tick and a number at each place.
class GroundScale : public QWidget {
 public:
  struct Graph {
    double units;   ///< height of the graph in its own units
    double height;  ///< the same in units of the plan
    double margin;  ///< by which the scale is higher than the graph, above and below, units of the plan
  };

  /// `role`: what it is, in Italian, for a screen reader.
  GroundScale(QWidget* ground, std::span<const guidance::ScaleLabel> labels, Graph graph, const QString& role,
              const QString& help);

  /// Writes the site above the scale; the numbers are then turned upright, as the scale is narrow.
  void showSite(const QString& site);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  [[nodiscard]] double pixelOf(double place) const;
  void paintLabel(QPainter& painter, const guidance::ScaleLabel& label) const;

  std::span<const guidance::ScaleLabel> labels_;
  Graph graph_;
  QString site_;
};

}  // namespace korvinel
