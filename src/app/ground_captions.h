#pragma once

#include "app/ground_caption.h"
#include "app/ground_scale.h"
#include "guidance/captions.h"
#include "platform/qt/plan_ground.h"

namespace korvinel {

/// The names of the sites, the scales and the titles on the main window's ground, beside the graphs.
class GroundCaptions {
 public:
  explicit GroundCaptions(platform::PlanGround& ground);  ///< which owns the widgets
  void show(const guidance::Captions& captions);

 private:
  GroundScale* traceScale(const platform::Rect& trace, const QString& role);
  GroundCaption* caption(const platform::Rect& place, const QString& role, const QString& help,
                         GroundCaption::Look look);
  void addNames();
  void addStrip();

  platform::PlanGround& ground_;
  GroundScale *firstTrace_, *secondTrace_;
  GroundCaption *leftSpectrum_ = nullptr, *rightSpectrum_ = nullptr, *coherence_ = nullptr;
  GroundCaption *firstNumbers_ = nullptr, *secondNumbers_ = nullptr, *strip_ = nullptr, *examination_ = nullptr;
};

}  // namespace korvinel
