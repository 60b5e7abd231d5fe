#include "platform/headless/scripted_serial_port.h"

#include <algorithm>

#include "platform/port_fault.h"

namespace korvinel::platform {
namespace {

/// Whether a real line would take "19200,N,8,1".
bool areLineSettings(std::string_view settings) {
  const std::size_t comma = settings.find(',');
  if (comma == std::string_view::npos || settings.size() != comma + 6) return false;
  const std::string_view baud = settings.substr(0, comma), framing = settings.substr(comma);
  const auto isOneOf = [](char sign, std::string_view all) { return all.find(sign) != std::string_view::npos; };
  return !baud.empty() && baud.find_first_not_of("0123456789") == std::string_view::npos &&
         isOneOf(framing[1], "NEOneo") && framing[2] == ',' && isOneOf(framing[3], "5678") && framing[4] == ',' &&
         isOneOf(framing[5], "12");
}

}  // namespace

void ScriptedSerialPort::setSettings(std::string_view settings) {
  if (!areLineSettings(settings)) throw PortFault(Facts{.cause = Cause::portSettings, .text = std::string(settings)});
  settings_ = settings;
}

void ScriptedSerialPort::open() {
  happened("open " + std::to_string(selected_) + " " + settings_);
  fail();
  if (unplugged_) throw PortFault(Facts{.cause = Cause::portMissing, .path = "COM" + std::to_string(selected_)});
  open_ = true;
}

void ScriptedSerialPort::close() {
  if (open_) happened("close");
  fail();
}

/// The line is closed, and what was on it is lost.
void ScriptedSerialPort::fail() {
  open_ = lost_ = false;
  system_.clear();
  beginAnew();
}

void ScriptedSerialPort::raise(const std::string& modemLine) {
  if (!connected()) {
    fail();
    throw PortFault(Cause::portSilent);
  }
  happened(modemLine);
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
  if (lost_) return fail();
  keep(system_);
  system_.clear();
  if (overrun_) suspect("il sistema ha contato dei byte persi o guasti sulla linea");
  overrun_ = false;
}

void ScriptedSerialPort::write(std::string_view bytes) {
  if (!connected()) {
    fail();
    throw PortFault(Cause::portSilent);
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
  lost_ = open_;
  system_.clear();
}

}  // namespace korvinel::platform
