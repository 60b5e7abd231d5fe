#pragma once

#include <functional>

#include "app/first_steps.h"
#include "app/sounds.h"
#include "app/trial_sign.h"
#include "app/watchfulness.h"

namespace korvinel {

class Guidance;
class MainWindowView;
namespace guidance {
class SettingsFile;
}

/// What helps around an examination, beside the status line: the first page, the sounds and what else watches, the sign
/// of the trial.
class RoomAids {
 public:
  /// `isTrial`: whether what is shown comes from the simulated instrument. All arguments must outlive it.
  RoomAids(const MainState& state, MainWindowView& window, Guidance& guidance, guidance::SettingsFile& settings,
           platform::Wakefulness& wakefulness, std::function<bool()> isTrial);

  void start();  ///< once the window is shown

 private:
  void refresh();

  guidance::SettingsFile& settings_;
  std::function<bool()> isTrial_;
  TrialSign* trial_;  ///< in the bar, which owns it, as the next one
  Sounds* sounds_;
  Watchfulness watchfulness_;
  FirstSteps firstSteps_;
};

}  // namespace korvinel
