#pragma once

#include <QLabel>
#include <QWidget>

#include "guidance/leftovers.h"
#include "platform/qt/plan_ground.h"

namespace korvinel {

/// A grey cover over a part of a window, with the sentence why. What it covers stays as it is; the mouse reaches it.
class Veil : public QWidget {
 public:
  Veil(QWidget* parent, const QString& role);
  void cover(const QString& reason);  ///< "" uncovers

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void placeSentence();

  QLabel sentence_;
};

/// The veils over those graphs and labels of the main window that show an examination no longer in memory.
class Veils {
 public:
  explicit Veils(platform::PlanGround& ground);  ///< which owns the widgets
  void show(const guidance::Leftovers& left);

 private:
  Veil* over(platform::PlanGround& ground, const platform::Rect& place);
  Veil *firstTrace_, *secondTrace_, *spectra_, *numbers_, *strip_, *messages_, *labels_;
};

}  // namespace korvinel
