#include "device/command_bytes.h"
#include "device/line_steps.h"
#include "frame/held_flag.h"
#include "frame/main_state.h"
#include "frame/main_window.h"
#include "frame/waiting.h"
#include "platform/platform.h"
#include "platform/serial_port.h"
#include "platform/timing.h"

namespace korvinel {
namespace {

using platform::Colour;

constexpr auto noAnswer = "NO!";
constexpr double answerTimeout = 2.0;  // seconds

void sendWithChecksum(MainState& state, std::string_view text) {
  state.commandChecksum = 0;
  state.commandText = text;
  for (const char byte : text) state.commandChecksum += static_cast<unsigned char>(byte);
  state.commandText += static_cast<char>(closingChecksum(state.commandChecksum));
  sendBytes(state, state.commandText);
}

std::string readAnswer(MainState& state) {
  const double start = state.timerMark = state.host.clock.seconds();
  for (;;) {
    state.host.events.process();
    if (state.host.clock.seconds() - start > answerTimeout) return noAnswer;
    if (state.host.serialPort.waiting() >= 2) return state.host.serialPort.read();
  }
}

/// Why this answer to the test command is not the instrument's.
LinkTrouble troubleOf(const MainState& state, const std::string& answer) {
  if (state.lineFault || !state.host.serialPort.isOpen()) return LinkTrouble::port;
  return answer == noAnswer ? LinkTrouble::silence : LinkTrouble::otherAnswer;
}

/// Opens the port and asks the instrument for its "OK".
LinkTrouble shakeHands(MainState& state) {
  state.window.firstTrace.printAt(2, 2, Colour::white, "Aspetta 4 secondi..");
  state.handshakeStart = state.host.clock.seconds();
  if (!openPort(state)) return LinkTrouble::port;
  state.sharedSelector = 1;
  waitLongerThan(state, state.sharedSelector);
  raiseLines(state);
  state.sharedSelector = 3;
  waitLongerThan(state, 3);
  state.host.serialPort.discardInput();
  state.host.serialPort.setReadLength(2);
  state.linkReady = 0;
  sendWithChecksum(state, testCommandText);
  const std::string answer = readAnswer(state);
  state.linkAnswer = answer == noAnswer ? "" : answer;
  if (answer != "OK") return troubleOf(state, answer);
  // Bytes that follow the answer would be taken for the first samples.
  return fallsSilent(state) ? LinkTrouble::none : LinkTrouble::noSilence;
}

void showLinkReady(MainState& state) {
  state.linkReady = 1;
  state.window.firstTrace.clear();
  state.window.firstTrace.line(1, 128, 258, 128, Colour::green);
  state.window.messagePanel.printAt(2, 30, Colour::white, "Premere Start per cominciare..");
}

}  // namespace

void MainState::openLink() {
  const HeldFlag pending(linkPending);
  streamStopped = 1;
  framesCut = 0;
  alignmentFault.clear();
  linkTrouble = LinkTrouble::none;
  linkAnswer.clear();
  while ((linkTrouble = shakeHands(*this)) != LinkTrouble::none)
    askOrEnd(*this,
             "Errore di comunicazione!\rVerificare se i cavi sono connessi\r"
             "oppure se lo strumento e' acceso!\rPremere OK per continuare.");
  showLinkReady(*this);
}

void MainState::sendStartCommand() {
  if (framesCut == 1 && streamStopped == 0) sendStopCommand();
  if (streamStopped == 1) findFramesAnew(*this);
  host.serialPort.setReadLength(0);
  host.serialPort.discardInput();
  sendWithChecksum(*this, startCommandText);
  streamStopped = 0;
}

void MainState::sendStopCommand() {
  sendBytes(*this, stopCommandBytes);
  streamStopped = 1;
}

}  // namespace korvinel
