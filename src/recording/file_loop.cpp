#include "recording/file_loop.h"

#include <utility>

namespace korvinel {
namespace {

bool isAllowed(MainState& state, FileCommand command) {
  switch (command) {
    case FileCommand::open: return openingIsAllowed(state);
    case FileCommand::replay: return replayIsAllowed(state);
    case FileCommand::none: break;
  }
  return false;
}

bool followsRunningLoop(MainState& state, FileCommand command) {
  if (state.fileLoopRunning == 0) return false;
  state.nextFileCommand = command;
  state.readHandle.reset();
  return true;
}

}  // namespace

void runFileCommand(MainState& state, FileCommand command) {
  if (!isAllowed(state, command) || followsRunningLoop(state, command)) return;
  state.nextFileCommand = FileCommand::none;
  do {
    if (command == FileCommand::open) openChosenFile(state);
    if (command == FileCommand::replay) replayOpenFile(state);
    command = std::exchange(state.nextFileCommand, FileCommand::none);
  } while (isAllowed(state, command));
}

}  // namespace korvinel
