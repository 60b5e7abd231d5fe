#pragma once

#include <deque>
#include <string>

#include "platform/headless/scripted_serial_port.h"

namespace korvinel::platform {

/// The instrument at the other end of a scripted line: answers the test command, and after the start command delivers a
/// whole block whenever the line is polled empty, so that a test determines each block.
class ScriptedInstrument {
 public:
  explicit ScriptedInstrument(ScriptedSerialPort& line);

  std::string answer = "OK";       ///< to the test command; "" stays silent
  std::deque<std::string> blocks;  ///< the next ones, usually 1024 bytes each; after the last, `idleBlock` repeats
  std::string idleBlock = std::string(1024, static_cast<char>(128));
  int blocksDelivered = 0;

  [[nodiscard]] bool streaming() const { return streaming_; }
  void goSilent() { streaming_ = false; }
  void deliverIfPolled();  ///< called as time goes by

 private:
  void take(const std::string& command);

  ScriptedSerialPort& line_;
  bool streaming_ = false;
};

}  // namespace korvinel::platform
