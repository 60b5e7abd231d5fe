#pragma once

#include <QIcon>

#include "app/sounds.h"
#include "guidance/cues.h"

namespace korvinel {

struct MainState;
namespace platform {
struct Wakefulness;
}

/// Watches over an examination: gives its cues, keeps the desktop awake until it has ended, and marks the window's icon
/// while it is recorded.
class Watchfulness {
 public:
  /// All arguments must outlive it.
  Watchfulness(const MainState& state, QWidget& window, Sounds& sounds, platform::Wakefulness& wakefulness);

  void refresh();

 private:
  void markIcon(bool recording);

  const MainState& state_;
  QWidget& window_;
  Sounds& sounds_;
  platform::Wakefulness& wakefulness_;
  guidance::Cues cues_;
  bool marked_ = false;
  QIcon usualIcon_;
};

}  // namespace korvinel
