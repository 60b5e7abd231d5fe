#pragma once

namespace korvinel {

struct DataFileAssembly;
struct MainState;

/// As MainState::assembleDataFile, but dispatches no events between blocks.
void assembleWithoutEvents(MainState& state);

/// Writes the rest of a data file under way, without dispatching events.
void finishAssembling(DataFileAssembly& assembly);

}  // namespace korvinel
