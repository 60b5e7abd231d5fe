#pragma once

#include <QAccessible>
#include <QCheckBox>
#include <QTimer>
#include <functional>

#include "guidance/cues.h"

namespace korvinel {

/// Gives the cues by the desktop's own soft sound, once to three times. Silent while the operator has switched it off,
/// and while a screen reader speaks, which a sound would drown.
class Sounds : public QCheckBox {
 public:
  /// `on`: whether it begins switched on. `onSwitched`: called with the operator's choice. `sound`: one sound.
  /// `isSpoken`: whether a screen reader speaks.
  Sounds(bool on, std::function<void(bool)> onSwitched, std::function<void()> sound,
         std::function<bool()> isSpoken = &QAccessible::isActive);

  void give(guidance::Cue cue);

 private:
  void soundOnce();

  std::function<void()> sound_;
  std::function<bool()> isSpoken_;
  int left_ = 0;  ///< sounds still to come
  QTimer pause_;
};

}  // namespace korvinel
