#include "app/watchfulness.h"

#include <QWidget>

#include "app/window_badge.h"
#include "frame/main_state.h"
#include "platform/wakefulness.h"

namespace korvinel {

Watchfulness::Watchfulness(const MainState& state, QWidget& window, Sounds& sounds, platform::Wakefulness& wakefulness)
    : state_(state), window_(window), sounds_(sounds), wakefulness_(wakefulness), usualIcon_(window.windowIcon()) {}

void Watchfulness::refresh() {
  sounds_.give(cues_.due(state_));
  state_.acquisitionPending() ? wakefulness_.hold() : wakefulness_.release();
  markIcon(state_.recordingActive == 1);
}

void Watchfulness::markIcon(bool recording) {
  if (recording == marked_) return;
  marked_ = recording;
  window_.setWindowIcon(recording ? iconOfRecording(usualIcon_) : usualIcon_);
}

}  // namespace korvinel
