#include <optional>
#include <string>

#include "device/frame_decoder.h"
#include "device/line_steps.h"
#include "frame/main_state.h"
#include "platform/line_watch.h"
#include "platform/platform.h"
#include "platform/serial_port.h"
#include "platform/timing.h"

namespace korvinel {
namespace {

constexpr int bytesPerBlock = instrumentStream.bytesPerBlock();
constexpr int mostRestarts = 3;  // without asking, for one block

void restartStream(MainState& state, const std::string& reason) {
  tellOfDoubt(state, reason);
  state.sendStopCommand();
  state.sendStartCommand();
  state.readStartTime = state.host.clock.seconds();
}

/// After Stop or End, the operator is not asked again and no stream is needed.
bool endIsAsked(const MainState& state) { return state.endRequested == 1 || state.stopRequested == 1; }

/// Waits for a whole block and reads everything that is waiting; nothing after the time-out. If it is uncertain whether
/// the bytes begin with channel 1, they are dropped and the stream is restarted.
std::optional<std::string> waitForBlock(MainState& state) {
  auto& port = state.host.serialPort;
  state.readStartTime = state.host.clock.seconds();
  for (int restarts = 0;;) {
    state.host.events.process();
    if (port.waiting() >= bytesPerBlock) {
      const std::string doubt = port.alignmentDoubt();
      if (!doubt.empty()) {
        if (++restarts > mostRestarts || endIsAsked(state)) return std::nullopt;
        restartStream(state, doubt);
      } else if (std::string bytes = port.read(); bytes.size() >= bytesPerBlock) {
        return bytes;  // fewer if the cable was pulled out since
      }
    }
    if (state.host.clock.seconds() - state.readStartTime > instrumentStream.blockTimeout()) return std::nullopt;
  }
}

/// Why no block has come.
LinkTrouble troubleOfWait(const MainState& state) {
  if (!state.host.serialPort.isOpen()) return LinkTrouble::port;
  const bool arrives = state.host.serialPort.silentFor() < platform::LineWatch::silence;
  return arrives ? LinkTrouble::lostFrames : LinkTrouble::silence;
}

/// The stop did not reach the instrument, which may still be streaming.
void openLineAgain(MainState& state) {
  if (!openPort(state)) return;
  raiseLines(state);
  state.sendStopCommand();
}

void askToRestartStream(MainState& state) {
  state.sendStopCommand();
  state.messageText1 = "Errore di comunicazione!\r";
  state.messageText2 = "Verificare se lo strumento e' acceso\r";
  state.messageText3 = "Premere OK per continuare\r";
  state.messageText4 = "oppure Cancel per terminare.";
  state.messageText1 += state.messageText2 + state.messageText3 + state.messageText4;
  askOrEnd(state, state.messageText1);
  if (!state.host.serialPort.isOpen()) openLineAgain(state);
  state.sendStartCommand();
}

}  // namespace

void MainState::readBlock() {
  artefactFlag = 1;  // no block is accepted until it has been checked
  std::optional<std::string> block;
  while (!(block = waitForBlock(*this))) {
    if (endIsAsked(*this)) return;
    linkTrouble = troubleOfWait(*this);
    askToRestartStream(*this);
    linkTrouble = LinkTrouble::none;
  }
  streamPosition = decodeFrames(*block, instrumentStream, sampleBlock);  // anything beyond the block is dropped
  decodedBlock = sampleBlock;
  decodedBlocks += 1;
  smoothBlock();
  checkArtefacts();
  if (endIsAsked(*this)) return;
  if (artefactFlag == 1) rejectBlock();
}

}  // namespace korvinel
