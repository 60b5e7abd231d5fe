#include "platform/headless/scripted_serial_port.h"

namespace korvinel::platform {

void ScriptedSerialPort::open() {
  happened("open " + std::to_string(selected_) + " " + settings_);
  if (unplugged_) throw PortFault("COM" + std::to_string(selected_) + " non c'e'");
  open_ = true;
  received_.clear();
}

void ScriptedSerialPort::close() {
  if (open_) happened("close");
  open_ = false;
  received_.clear();
}

void ScriptedSerialPort::discardInput() {
  happened("discard");
  received_.clear();
}

void ScriptedSerialPort::write(std::string_view bytes) {
  if (!connected()) {
    open_ = false;
    throw PortFault("La porta seriale non risponde");
  }
  std::string event = "write";
  for (const char byte : bytes) event += " " + std::to_string(static_cast<unsigned char>(byte));
  happened(event);
  written_ += bytes;
  if (onWritten) onWritten(std::string(bytes));
}

void ScriptedSerialPort::deliver(std::string_view bytes) {
  if (connected()) received_.keep(bytes);
}

void ScriptedSerialPort::unplug() {
  unplugged_ = true;
  received_.clear();
}

}  // namespace korvinel::platform
