#include "platform/headless/scripted_serial_port.h"

#include <algorithm>

namespace korvinel::platform {

void ScriptedSerialPort::open() {
  happened("open " + std::to_string(selected_) + " " + settings_);
  if (unplugged_) throw PortFault("COM" + std::to_string(selected_) + " non c'e'");
  open_ = true;
  system_.clear();
  beginAnew();
}

void ScriptedSerialPort::close() {
  if (open_) happened("close");
  open_ = false;
  system_.clear();
  beginAnew();
}

void ScriptedSerialPort::discardInput() {
  happened("discard");
  BufferedLine::discardInput();
}

std::string ScriptedSerialPort::read() {
  if (beforeRead) beforeRead();
  return BufferedLine::read();
}

void ScriptedSerialPort::takeFromSystem() {
  keep(system_);
  system_.clear();
  if (overrun_) suspect("il sistema ha contato dei byte persi o guasti sulla linea");
  overrun_ = false;
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
  if (connected()) system_ += bytes.substr(0, systemBuffer - std::min(systemBuffer, system_.size()));
}

void ScriptedSerialPort::unplug() {
  unplugged_ = true;
  system_.clear();
  beginAnew();
}

}  // namespace korvinel::platform
