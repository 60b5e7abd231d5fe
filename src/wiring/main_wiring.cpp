#include "wiring/main_wiring.h"

#include <functional>

#include "frame/main_state.h"
#include "frame/main_window.h"
#include "platform/operation_edge.h"
#include "platform/platform.h"
#include "platform/serial_port.h"
#include "platform/timing.h"
#include "recording/conclusion.h"

namespace korvinel {
namespace {

using Operation = void (MainState::*)();

std::function<void()> behindEdge(MainState& state, platform::OperationEdge& edge, Operation operation) {
  return [&state, &edge, operation] { edge.run([&] { (state.*operation)(); }); };
}

/// Stops the stream if the turn that would stop it no longer comes.
void stopStream(MainState& state) {
  const bool turnIsLeftOut = state.host.tickTimer.enabled() || state.host.pauseTimer.enabled();
  const bool streams = turnIsLeftOut || (state.nobodyToAsk == 1 && state.acquisitionPending());
  if (streams && state.host.serialPort.isOpen()) state.sendStopCommand();
}

}  // namespace

void tieControls(MainState& state, platform::OperationEdge& edge) {
  const auto on = [&](Operation operation) { return behindEdge(state, edge, operation); };
  MainWindow& window = state.window;
  window.Starts1.onPressed = on(&MainState::startCommand);
  window.Stopd1.onPressed = on(&MainState::stopCommand);
  window.Endx1.onPressed = on(&MainState::endCommand);
  window.Canali.onPressed = on(&MainState::toggleChannelPair);
  window.Artefact.onPressed = on(&MainState::editArtefactThreshold);
  window.Analisi.onPressed = on(&MainState::openReport);
  window.Stampa.onPressed = on(&MainState::printCommand);
  window.Registra.onPressed = on(&MainState::startRecording);
  window.Annotax.onPressed = on(&MainState::beginNote);
  window.noteBox.onKey = [&state, &edge](int key) { edge.run([&] { state.noteKey(key); }); };
  window.Openx.onPressed = on(&MainState::openDataFile);
  window.Displayx.onPressed = on(&MainState::replayFile);
  window.Slider1.onMoved = on(&MainState::startBlockChanged);
  window.HScroll1.onMoved = on(&MainState::amplitudeScaleMoved);
  window.HScroll2.onMoved = on(&MainState::displaySpeedMoved);
  const auto onStrip = [&](void (MainState::*operation)(float)) {
    return [&state, &edge, operation](float x) { edge.run([&] { (state.*operation)(x); }); };
  };
  window.stripPointer = {onStrip(&MainState::stripPressed), onStrip(&MainState::stripMoved),
                         onStrip(&MainState::stripReleased)};
  edge.beforeEnd = [&state] {
    bringRecordingHome(state);
    stopStream(state);
  };
  state.host.tickTimer.onElapsed = on(&MainState::acquisitionTick);
  state.host.pauseTimer.onElapsed = on(&MainState::pauseElapsed);
}

}  // namespace korvinel
