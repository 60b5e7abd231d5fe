#pragma once

#include <sys/ioctl.h>
#include <termios.h>

#include <functional>
#include <string>

#include "platform/posix/file_descriptor.h"
#include "platform/receive_buffer.h"
#include "platform/serial_port.h"

namespace korvinel::platform {

/// "19200,N,8,1" as the flags of a terminal: speed, and the bits of `c_cflag` for parity, data bits and stop bits.
struct LineSettings {
  speed_t speed = B19200;
  tcflag_t flags = CS8;
};

/// Throws PortFault for settings that no line has.
[[nodiscard]] LineSettings parseLineSettings(std::string_view settings);

/// A serial line on the system's terminal devices, pseudo-terminals included. It has a receive buffer of its own, into
/// which everything that the system holds is taken at every look; what does not fit is lost, as on the wire.
class SerialLine : public SerialPort {
 public:
  /// `devicePath`: the device of a port number, asked at every opening.
  explicit SerialLine(std::function<std::string(int portNumber)> devicePath) : devicePath_(std::move(devicePath)) {}

  void select(int portNumber) override { portNumber_ = portNumber; }
  void setSettings(std::string_view settings) override { settings_ = parseLineSettings(settings); }
  void setReceiveBuffer(int bytes) override { received_.setCapacity(bytes); }
  void setReadLength(int bytes) override { received_.setReadLength(bytes); }

  void open() override;
  void close() override;
  [[nodiscard]] bool isOpen() const override { return device_.isOpen(); }
  void raiseRts() override { raise(TIOCM_RTS); }
  void raiseDtr() override { raise(TIOCM_DTR); }

  [[nodiscard]] int waiting() override;
  void discardInput() override;
  [[nodiscard]] std::string read() override;
  void write(std::string_view bytes) override;

 private:
  [[nodiscard]] bool configure() const;
  void raise(int modemLine);
  void takeArrived();
  [[nodiscard]] bool hungUp() const;
  void waitUntilWritable();
  [[noreturn]] void fail(const std::string& reason);

  std::function<std::string(int)> devicePath_;
  int portNumber_ = 1;
  LineSettings settings_;
  FileDescriptor device_;
  ReceiveBuffer received_;
};

}  // namespace korvinel::platform
