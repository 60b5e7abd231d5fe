#include "platform/headless/scripted_instrument.h"

namespace korvinel::platform {

ScriptedInstrument::ScriptedInstrument(ScriptedSerialPort& line) : line_(line) {
  line.onWritten = [this](const std::string& command) { take(command); };
}

void ScriptedInstrument::take(const std::string& command) {
  if (command == "TEST\xC0") line_.deliver(answer);
  if (command == std::string("S\x01\x04\x78\x41\x08\x42\xA5")) streaming_ = true;
  if (command == "\xFF\x01") streaming_ = false;
}

void ScriptedInstrument::deliverIfPolled() {
  if (!streaming_ || !line_.connected() || line_.undelivered() > 0) return;
  line_.deliver(blocks.empty() ? idleBlock : blocks.front());
  if (!blocks.empty()) blocks.pop_front();
  ++blocksDelivered;
}

}  // namespace korvinel::platform
