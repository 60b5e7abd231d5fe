#pragma once

#include <windows.h>

#include <functional>
#include <string>

#include "platform/receive_buffer.h"
#include "platform/serial_port.h"
#include "platform/windows/file_handle.h"

namespace korvinel::platform {

/// A serial line on a COM port. It has a receive buffer of its own, into which everything that the driver holds is
/// taken at every look; what does not fit is lost, as on the wire. The driver's queue is asked to have the same length.
class SerialLine : public SerialPort {
 public:
  /// `devicePath`: the device of a port number, asked at every opening.
  explicit SerialLine(std::function<std::string(int portNumber)> devicePath) : devicePath_(std::move(devicePath)) {}

  void select(int portNumber) override { portNumber_ = portNumber; }
  void setSettings(std::string_view settings) override;  ///< throws PortFault for settings that no line has
  void setReceiveBuffer(int bytes) override { received_.setCapacity(bytes); }
  void setReadLength(int bytes) override { received_.setReadLength(bytes); }

  void open() override;
  void close() override;
  [[nodiscard]] bool isOpen() const override { return device_.isOpen(); }
  void raiseRts() override { raise(SETRTS); }
  void raiseDtr() override { raise(SETDTR); }

  [[nodiscard]] int waiting() override;
  void discardInput() override;
  [[nodiscard]] std::string read() override;
  void write(std::string_view bytes) override;

 private:
  [[nodiscard]] bool configure() const;
  void raise(DWORD modemLine);
  void takeArrived();
  [[nodiscard]] bool takePiece();
  [[noreturn]] void fail(const std::string& reason);

  std::function<std::string(int)> devicePath_;
  int portNumber_ = 1;
  std::string settings_ = "19200,N,8,1";
  FileHandle device_;
  ReceiveBuffer received_;
};

}  // namespace korvinel::platform
