#include "device/line_steps.h"

#include "device/frame_decoder.h"
#include "frame/fault_text.h"
#include "frame/main_state.h"
#include "frame/main_window.h"
#include "platform/dialogs.h"
#include "platform/line_watch.h"
#include "platform/machine.h"
#include "platform/platform.h"
#include "platform/port_fault.h"
#include "platform/program_end.h"
#include "platform/serial_port.h"
#include "platform/timing.h"

namespace korvinel {
namespace {

using platform::Colour;

constexpr auto lineSettings = "19200,N,8,1";
constexpr double drainTimeout = 2.0;  // seconds

template <typename Step>
bool attempt(MainState& state, Step&& step) {
  try {
    step();
    return true;
  } catch (const platform::PortFault& fault) {
    const std::string text = faultText(fault);
    if (!state.lineFault || faultText(*state.lineFault) != text) state.host.machine.tell(text);
    state.lineFault = std::make_shared<const Facts>(fault.facts());
    return false;
  }
}

}  // namespace

void sendBytes(MainState& state, std::string_view bytes) {
  attempt(state, [&] { state.host.serialPort.write(bytes); });
}

bool openPort(MainState& state) {
  auto& port = state.host.serialPort;
  return attempt(state, [&] {
    port.close();
    port.select(state.serialPort);
    port.setSettings(lineSettings);
    port.setReadLength(1);
    port.setReceiveBuffer(instrumentStream.receiveBufferBytes());
    port.open();
    state.lineFault.reset();
  });
}

void raiseLines(MainState& state) {
  attempt(state, [&] { state.host.serialPort.raiseRts(); });
  attempt(state, [&] { state.host.serialPort.raiseDtr(); });
}

bool fallsSilent(MainState& state) {
  auto& port = state.host.serialPort;
  const double start = state.host.clock.seconds();
  for (;;) {
    static_cast<void>(port.waiting());
    if (port.silentFor() >= platform::LineWatch::silence) return true;
    if (state.host.clock.seconds() - start > drainTimeout) return false;
    state.host.events.process();
  }
}

void findFramesAnew(MainState& state) {
  auto& port = state.host.serialPort;
  const bool cutBefore = port.leftFrameUnfinished();
  const bool silent = fallsSilent(state);
  // The stop has cut a frame, or an earlier one has lost a byte: the blocks so far may be rotated.
  if (silent && !cutBefore && port.leftFrameUnfinished()) {
    state.framesCut = 1;
    tellOfDoubt(state, "un gruppo di campioni è rimasto incompleto");
  }
  port.expectFrames(instrumentStream.bytesPerFrame(), silent);
}

void tellOfDoubt(MainState& state, const std::string& reason) {
  state.alignmentFault = reason;
  state.alignmentFaultBlock = state.decodedBlocks;
  state.window.statusLabel.setInk(Colour::lightRed);
  state.window.statusLabel.setText("Allineamento dei canali incerto: flusso riavviato");
  state.host.machine.tell("allineamento dei canali incerto: " + reason);
}

void askOrEnd(MainState& state, const std::string& text) {
  const platform::Choice choice = state.host.dialogs.ask(text, "Error!");
  state.messageAnswer = static_cast<int>(choice);
  if (choice == platform::Choice::cancel) throw platform::ProgramEnd{};
}

}  // namespace korvinel
