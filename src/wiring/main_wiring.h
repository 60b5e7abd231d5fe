#pragma once

namespace korvinel::platform {
class OperationEdge;
}

namespace korvinel {

struct MainState;

/// Connects the main window's controls and the two timers to the operations of the record, each through the edge: a
/// fault ends its operation only. All arguments must live as long as the window.
void tieControls(MainState& state, platform::OperationEdge& edge);

}  // namespace korvinel
