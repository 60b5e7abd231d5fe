#pragma once

#include <windows.h>

#include <functional>
#include <string>

#include "platform/buffered_line.h"
#include "platform/windows/file_handle.h"

namespace korvinel::platform {

struct PortFault;

/// A serial line on a COM port.
class SerialLine : public BufferedLine {
 public:
  /// `devicePath`: returns the device of a port number; called at every opening.
  explicit SerialLine(std::function<std::string(int portNumber)> devicePath) : devicePath_(std::move(devicePath)) {}

  void select(int portNumber) override { portNumber_ = portNumber; }
  void setSettings(std::string_view settings) override;  ///< throws PortFault for invalid settings

  void open() override;
  void close() override;
  [[nodiscard]] bool isOpen() const override { return device_.isOpen(); }
  void raiseRts() override { raise(SETRTS); }
  void raiseDtr() override { raise(SETDTR); }

  void write(std::string_view bytes) override;

 private:
  [[nodiscard]] bool configure() const;
  void raise(DWORD modemLine);
  void takeFromSystem() override;
  void dropFromSystem() override;
  [[nodiscard]] double seconds() const override;
  [[nodiscard]] bool takePiece();
  [[noreturn]] void fail(const PortFault& fault);

  std::function<std::string(int)> devicePath_;
  int portNumber_ = 1;
  std::string settings_ = "19200,N,8,1";
  FileHandle device_;
};

}  // namespace korvinel::platform
