#pragma once

#include "frame/main_state.h"

namespace korvinel {

/// As MainState::assembleDataFile, but lets no events in between two blocks.
void assembleWithoutEvents(MainState& state);

}  // namespace korvinel
