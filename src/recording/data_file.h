#pragma once

#include "frame/main_state.h"

namespace korvinel {

/// As MainState::assembleDataFile, but dispatches no events between blocks.
void assembleWithoutEvents(MainState& state);

}  // namespace korvinel
