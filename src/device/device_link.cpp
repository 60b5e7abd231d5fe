#include "device/command_bytes.h"
#include "frame/main_state.h"
#include "frame/waiting.h"
#include "platform/dialogs.h"
#include "platform/operation_edge.h"
#include "platform/serial_port.h"
#include "platform/timing.h"

namespace korvinel {
namespace {

using platform::Choice;
using platform::Colour;
using platform::skipOnFault;

constexpr auto lineSettings = "19200,N,8,1";
constexpr int receiveBufferBytes = 1600;
constexpr int bytesPerBlock = 1024;
constexpr double answerTimeout = 2.0;  // seconds
constexpr double blockTimeout = 4.0;   // seconds

/// A line that fails stays silent until it is opened again: the time-outs tell the user.
void send(MainState& state, std::string_view bytes) {
  skipOnFault([&] { state.host.serialPort.write(bytes); });
}

void sendWithChecksum(MainState& state, std::string_view text) {
  state.commandChecksum = 0;
  state.commandText = text;
  for (const char byte : text) state.commandChecksum += static_cast<unsigned char>(byte);
  state.commandText += static_cast<char>(closingChecksum(state.commandChecksum));
  send(state, state.commandText);
}

bool openPort(MainState& state) {
  auto& port = state.host.serialPort;
  return skipOnFault([&] {
    port.close();
    port.select(state.serialPort);
    port.setSettings(lineSettings);
    port.setReadLength(1);
    port.setReceiveBuffer(receiveBufferBytes);
    port.open();
  });
}

void raiseLines(MainState& state) {
  skipOnFault([&] { state.host.serialPort.raiseRts(); });
  skipOnFault([&] { state.host.serialPort.raiseDtr(); });
}

std::string readAnswer(MainState& state) {
  const double start = state.timerMark = state.host.clock.seconds();
  for (;;) {
    state.host.events.process();
    if (state.host.clock.seconds() - start > answerTimeout) return "NO!";
    if (state.host.serialPort.waiting() >= 2) return state.host.serialPort.read();
  }
}

/// Opens the port and asks the instrument for its "OK"; a port that cannot be opened is an instrument that is silent.
bool shakeHands(MainState& state) {
  state.window.firstTrace.printAt(2, 2, Colour::white, "Aspetta 4 secondi..");
  if (!openPort(state)) return false;
  state.sharedSelector = 1;
  waitLongerThan(state, state.sharedSelector);
  raiseLines(state);
  state.sharedSelector = 3;
  waitLongerThan(state, 3);
  state.host.serialPort.discardInput();
  state.host.serialPort.setReadLength(2);
  state.linkReady = 0;
  sendWithChecksum(state, testCommandText);
  return readAnswer(state) == "OK";
}

void askOrEnd(MainState& state, const std::string& text) {
  const Choice choice = state.host.dialogs.ask(text, "Error!");
  state.messageAnswer = static_cast<int>(choice);
  if (choice == Choice::cancel) throw platform::ProgramEnd{};
}

void showLinkReady(MainState& state) {
  state.linkReady = 1;
  state.window.firstTrace.clear();
  state.window.firstTrace.line(1, 128, 258, 128, Colour::green);
  state.window.messagePanel.printAt(2, 30, Colour::white, "Premere Start per cominciare..");
}

/// Waits until a whole block is there; false after the time-out.
bool waitForBlock(MainState& state) {
  const double start = state.readStartTime = state.host.clock.seconds();
  for (;;) {
    state.host.events.process();
    if (state.host.serialPort.waiting() >= bytesPerBlock) return true;
    if (state.host.clock.seconds() - start > blockTimeout) return false;
  }
}

void askToRestartStream(MainState& state) {
  state.sendStopCommand();
  state.messageText1 = "Errore di comunicazione!\r";
  state.messageText2 = "Verificare se lo strumento e' acceso\r";
  state.messageText3 = "Premere OK per continuare\r";
  state.messageText4 = "oppure Cancel per terminare.";
  state.messageText1 += state.messageText2 + state.messageText3 + state.messageText4;
  askOrEnd(state, state.messageText1);
  if (!state.host.serialPort.isOpen() && openPort(state)) raiseLines(state);
  state.sendStartCommand();
}

/// Frames of 4 bytes, channel 1 to 4. What is waiting beyond the block is dropped.
void decodeBlock(MainState& state) {
  const std::string bytes = state.host.serialPort.read();
  state.streamPosition = 0;
  for (int sample = 1; sample <= state.samplesPerBlock; ++sample)
    for (int channel = 1; channel <= 4; ++channel) {
      state.streamPosition += 1;
      state.sampleBlock[channel][sample] =
          static_cast<float>(static_cast<unsigned char>(bytes.at(static_cast<std::size_t>(state.streamPosition) - 1)));
    }
}

}  // namespace

void MainState::openLink() {
  linkPending = 1;
  while (!shakeHands(*this))
    askOrEnd(*this,
             "Errore di comunicazione!\rVerificare se i cavi sono connessi\r"
             "oppure se lo strumento e' acceso!\rPremere OK per continuare.");
  showLinkReady(*this);
  linkPending = 0;
}

void MainState::sendStartCommand() {
  host.serialPort.setReadLength(0);
  host.serialPort.discardInput();
  sendWithChecksum(*this, startCommandText);
}

void MainState::sendStopCommand() { send(*this, stopCommandBytes); }

void MainState::readBlock() {
  while (!waitForBlock(*this)) askToRestartStream(*this);
  decodeBlock(*this);
  smoothBlock();
  checkArtefacts();
  if (endRequested == 1 || stopRequested == 1) return;
  if (artefactFlag == 1) rejectBlock();
}

}  // namespace korvinel
