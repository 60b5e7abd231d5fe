#pragma once

#include "frame/main_state.h"
#include "platform/platform.h"
#include "platform/timing.h"

namespace korvinel {

/// Dispatches events until more than `seconds` have passed. Their handlers may set any flag.
inline void waitLongerThan(MainState& state, double seconds) {
  const double start = state.timerMark = state.host.clock.seconds();
  while (state.host.clock.seconds() - start <= seconds) state.host.events.process();
}

/// Dispatches events until at least `seconds` have passed; `mark` becomes the start time.
inline void waitAtLeast(platform::Platform& host, double& mark, double seconds) {
  const double start = mark = host.clock.seconds();
  while (host.clock.seconds() - start < seconds) host.events.process();
}
inline void waitAtLeast(MainState& state, double seconds) { waitAtLeast(state.host, state.timerMark, seconds); }

}  // namespace korvinel
