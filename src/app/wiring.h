#pragma once

#include "frame/main_state.h"
#include "platform/operation_edge.h"

namespace korvinel {

/// Ties the main window's controls and the two timers to the operations of the record. Every event runs behind the
/// edge, where a fault ends its operation only. All of them must live as long as the window.
void tieControls(MainState& state, platform::OperationEdge& edge);

}  // namespace korvinel
