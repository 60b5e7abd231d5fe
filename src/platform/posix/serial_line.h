#pragma once

#include <sys/ioctl.h>
#include <termios.h>

#include <functional>
#include <string>

#include "platform/buffered_line.h"
#include "platform/posix/file_descriptor.h"

namespace korvinel::platform {

struct PortFault;

/// "19200,N,8,1" as the flags of a terminal: speed, and the bits of `c_cflag` for parity, data bits and stop bits.
struct LineSettings {
  speed_t speed = B19200;
  tcflag_t flags = CS8;
};

/// Throws PortFault for invalid settings.
[[nodiscard]] LineSettings parseLineSettings(std::string_view settings);

/// The number of bytes that the system has counted as lost or damaged on an open line; 0 if it does not count (a
/// pseudo-terminal).
[[nodiscard]] long countedLineErrors(int device);

/// A serial line on the system's terminal devices, pseudo-terminals included.
class SerialLine : public BufferedLine {
 public:
  /// `devicePath`: returns the device of a port number; called at every opening. `lineErrors`: like
  /// `countedLineErrors`.
  explicit SerialLine(std::function<std::string(int portNumber)> devicePath,
                      std::function<long(int device)> lineErrors = countedLineErrors)
      : devicePath_(std::move(devicePath)), lineErrors_(std::move(lineErrors)) {}

  void select(int portNumber) override { portNumber_ = portNumber; }
  void setSettings(std::string_view settings) override { settings_ = parseLineSettings(settings); }

  void open() override;
  void close() override;
  [[nodiscard]] bool isOpen() const override { return device_.isOpen(); }
  void raiseRts() override { raise(TIOCM_RTS); }
  void raiseDtr() override { raise(TIOCM_DTR); }

  void expectFrames(int bytesPerFrame, bool lineIsSilent) override;
  void write(std::string_view bytes) override;

 private:
  [[nodiscard]] bool configure() const;
  void raise(int modemLine);
  void takeFromSystem() override;
  void dropFromSystem() override;
  [[nodiscard]] double seconds() const override;
  void takeArrived();
  [[nodiscard]] bool hungUp() const;
  void waitUntilWritable();
  [[noreturn]] void fail(const PortFault& fault);

  std::function<std::string(int)> devicePath_;
  int portNumber_ = 1;
  LineSettings settings_;
  FileDescriptor device_;
  std::function<long(int)> lineErrors_;
  long knownErrors_ = 0;
};

}  // namespace korvinel::platform
